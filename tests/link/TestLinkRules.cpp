#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "link/RecordParser.h"

#include <QTest>

namespace {
// The menus that follow the acquisition mode, one character each: 'o' enabled, '.' disabled,
// '*' enabled and checked.
QString menus(const Application& a)
{
    QString shown;
    for (const char* name : { "mnuSenseTemperature", "mnuDownloadData", "mnuSystemSetup", "mnuFile",
             "mnuSavePlotToFile", "mnuLoadPlotFile", "mnuShowAllPts", "mnuClearChart",
             "mnuCopyChart", "mnuTextStamp", "mnuNewAcquiredDataPoints", "mnuAbout", "mnuCharting",
             "mnuSearchForIR" }) {
        const Control* c = a.main.control(QString::fromLatin1(name));
        shown += c->checked() ? (c->enabled() ? '*' : '#') : (c->enabled() ? 'o' : '.');
    }
    return shown;
}
const QString Idle = "oooooooooooooo";
const QString Sensing = "*...........oo";
const QString Downloading = ".*o.ooooo.o..o";

QString readout(const Application& a)
{
    static const QMap<qint64, QString> names { { Colors::Green, "green" }, { Colors::Red, "red" },
        { Colors::Yellow, "yellow" }, { Colors::Grey, "grey" } };
    return a.main.lblCurrentTemp.caption() + '/' + names.value(a.main.lblCurrentTemp.foreColor());
}
} // namespace

// The rules of the line that the end-to-end runs cannot reach cheaply: what a record is, when
// the watchdog halts, the alarm limits, and how each way a download ends leaves the program.
class TestLinkRules : public QObject {
    Q_OBJECT
private slots:
    // What a record is against the mode: kind, the mode error, the reading or why there is none.
    void parseRecord_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("block");
        QTest::addColumn<QString>("mode"); // "realtime", "download", "idle"
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("error");
        QTest::addColumn<int>("fault");
        QTest::addColumn<int>("temperature"); // -1: none
        using K = RecordKind;
        using E = ModeError;
        using F = ReadingFault;
        auto row = [](const char* name, const char* text, bool block, const char* mode, K kind,
                       E error, F fault, int temperature) {
            QTest::newRow(name) << QString(text) << block << QString(mode) << int(kind)
                                << int(error) << int(fault) << temperature;
        };
        row("short record is the whole field", "12", false, "realtime", K::Reading, E::None,
            F::None, 12);
        row("long form, text before the unit", "  1234   DEG F", false, "realtime", K::Reading,
            E::None, F::None, 1234);
        row("twelve characters: the unit spoils it", "  75   DEG F", false, "realtime", K::Reading,
            E::None, F::NotNumeric, -1);
        row("negative long form", "  -40   DEG C", false, "realtime", K::Reading, E::None, F::None,
            -40);
        row("half to even", "  74.5", false, "realtime", K::Reading, E::None, F::None, 74);
        row("largest", "  32767", false, "realtime", K::Reading, E::None, F::None, 32767);
        row("out of range", "  32768", false, "realtime", K::Reading, E::None, F::OutOfRange, -1);
        row("beyond a double", "-1E309", false, "realtime", K::Reading, E::None, F::OutOfRange, -1);
        row("long record, word first", "  ERROR   SENSOR", false, "realtime", K::Reading, E::None,
            F::NotNumeric, -1);
        row("blank", "", false, "realtime", K::Blank, E::None, F::NotNumeric, -1);
        row("block", "\x0b  DEG F\r\n", true, "realtime", K::ParameterBlock, E::None, F::NotNumeric,
            -1);
        row("stored while sensing", "#001  75", true, "realtime", K::StoredPoint,
            E::StoredWhileRealTime, F::None, -1);
        row("stored while downloading", "#001  75", false, "download", K::StoredPoint, E::None,
            F::None, -1);
        row("reading while downloading", "  75", false, "download", K::Reading,
            E::ReadingWhileDownload, F::None, -1);
        row("bare CR LF while downloading", "  ", false, "download", K::Reading, E::None, F::None,
            -1);
        row("empty location", "", false, "download", K::Blank, E::None, F::None, -1);
        row("no reading outside sensing", "  75", false, "idle", K::Reading, E::None, F::None, -1);
    }
    void parseRecord()
    {
        QFETCH(QString, text);
        QFETCH(bool, block);
        QFETCH(QString, mode);
        QFETCH(int, temperature);
        const ParsedRecord parsed
            = ParseRecord({ text, block }, { mode == "realtime", mode == "download" });
        QTEST(int(parsed.kind), "kind");
        QTEST(int(parsed.modeError), "error");
        QTEST(int(parsed.fault), "fault");
        QCOMPARE(int(parsed.temperature.value_or(-1)), temperature);
    }

    // The text rules: a parameter's value, a stored record's columns, a block's fields.
    void textRules_data()
    {
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("in");
        QTest::addColumn<QString>("out");
        auto row = [](const char* name, const char* rule, const char* in, const char* out) {
            QTest::newRow(name) << QString(rule) << QString(in) << QString(out);
        };
        row("interval", "value", "INT (SECS)      2\r", "2");
        row("units with control characters", "value", "\x0b  DEG F\r", "DEG F");
        row("no run of blanks", "value", " EMISSIVITY 0.95 ", "EMISSIVITY 0.95");
        row("several runs, the last wins", "value", "A  B   C 1", "C 1");
        row("stored reading", "stored", "#001   75   DEG F", "\t#001\t75\tDEG F");
        row("leading blanks", "stored", "  #012  101", "\t#012\t101");
        row("group separator", "stored", "  ", "\r\n\t");
        row("trailing blanks", "stored", "#3  7  ", "\t#3\t7");
        row("eleven fields, short lines skipped, text after the last line feed unused", "fields",
            "A1234\nB\nC1234\nD1234\nE1234\nF1234\nG1234\nH1234\nI1234\nJ1234\nK1234\nL1234\nM",
            "A1234|C1234|D1234|E1234|F1234|G1234|H1234|I1234|J1234|K1234|L1234");
        row("ten fields are not a block", "fields",
            "A1234\nB1234\nC1234\nD1234\nE1234\nF1234\nG1234\nH1234\nI1234\nJ1234\n", "");
        row("a dash makes the seventh BOGUS", "fields",
            "A1234\nB1234\nC1234\nD1234\nE1234\nF1234\nG--34\nH1234\nI1234\nJ1234\nK1234\n",
            "A1234|B1234|C1234|D1234|E1234|F1234|BOGUS|H1234|I1234|J1234|K1234");
    }
    void textRules()
    {
        QFETCH(QString, rule);
        QFETCH(QString, in);
        QString out;
        if (rule == "value") {
            out = ParameterValuePart(in);
        } else if (rule == "stored") {
            out = FormatStoredRecord(in);
        } else if (const auto fields = ParameterBlockFields(in)) {
            out = QStringList(fields->begin(), fields->end()).join('|');
        }
        QTEST(out, "out");
    }

    // The records assembled from characters: "|" ends a record as shown, "[block]" marks a
    // parameter block.
    void reader_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("records");
        QTest::newRow("line ends become blanks") << QByteArray("  75\r\n\x07\x07") << "  75  ||";
        QTest::newRow("kept inside a block, and the text before its tab too")
            << QByteArray("A\r\x0b"
                          "B\r\n\x07"
                          "C\x07")
            << "A \x0b"
               "B\r\n[block]|C|";
        QTest::newRow("a second tab begins the block anew") << QByteArray("\x0b"
                                                                          "A\r\n\x0b"
                                                                          "B\x07")
                                                            << "\x0b"
                                                               "B[block]|";
        QByteArray endless(RecordReader::MaxRecordLength + 10, '7');
        QTest::newRow("a record never ended is cut at its bound")
            << endless + "\x07" << QString(RecordReader::MaxRecordLength, '7') + '|';
    }
    void reader()
    {
        QFETCH(QByteArray, bytes);
        RecordReader reader;
        QString records;
        for (char c : bytes) {
            if (const auto record = reader.feed(c))
                records += record->text + (record->parameterBlock ? "[block]|" : "|");
        }
        QTEST(records, "records");
        QVERIFY(reader.pending().isEmpty());
    }

    // Empty records outside a download: the first arms the guard, the fifth counted halts.
    void blankLines_data()
    {
        QTest::addColumn<QString>("records"); // E empty, T text, D empty in a download
        QTest::addColumn<QString>("halts");
        QTest::newRow("the sixth halts") << "EEEEEEE"
                                         << "0000011";
        QTest::newRow("text disarms") << "EEEETEEEEE"
                                      << "0000000000";
        QTest::newRow("a download never arms") << "DDDDDDD"
                                               << "0000000";
        QTest::newRow("armed, a download counts on") << "EDDDDD"
                                                     << "000001";
    }
    void blankLines()
    {
        QFETCH(QString, records);
        BlankLineGuard guard;
        QString halts;
        for (QChar r : records)
            halts += guard.halts(r != 'T', r == 'D') ? '1' : '0';
        QTEST(halts, "halts");
    }

    // Readings against the alarm limits 25 and 85, after a reading of 90.
    void alarmLimits_data()
    {
        QTest::addColumn<QByteArray>("reading");
        QTest::addColumn<QString>("shown");
        QTest::newRow("above the high limit") << QByteArray("  86") << "86/red";
        QTest::newRow("at the high limit") << QByteArray("  85") << "85/green";
        QTest::newRow("below the low limit") << QByteArray("  24") << "24/yellow";
        QTest::newRow("at the low limit") << QByteArray("  25") << "25/green";
        QTest::newRow("out of range") << QByteArray("  40000") << "90/grey";
        QTest::newRow("not numeric") << QByteArray("ERROR") << "90/grey";
        QTest::newRow("400 digits are no reading of 0") << QByteArray(400, '9') << "90/grey";
    }
    void alarmLimits()
    {
        QFETCH(QByteArray, reading);
        QFETCH(QString, shown);
        AppRig rig;
        Application& a = rig.app();
        a.state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        a.state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        QCOMPARE(menus(a), Sensing);
        rig.feed("  90\x07" + reading + "\x07");
        QCOMPARE(readout(a), shown);
        QCOMPARE(a.main.lblStatCurrentTemp.foreColor(), a.main.lblCurrentTemp.foreColor());
        QVERIFY(a.main.lblStatCurrentTemp.visible());
        QCOMPARE(a.acquisition.tmrBeep().isActive(), shown.endsWith("red") || shown.endsWith("w"));
        QCOMPARE(rig.chart.pointCount(1) - 1, shown.endsWith("grey") ? 1 : 2);
        a.acquisition.mnuStop_Click();
        QCOMPARE(menus(a), Idle);
        QVERIFY(!a.acquisition.tmrBeep().isActive() && !a.main.lblStatCurrentTemp.visible());
    }

    void beep_data()
    {
        QTest::addColumn<QString>("entry22");
        QTest::addColumn<int>("beeps");
        QTest::newRow("on") << "1" << 1;
        QTest::newRow("off") << "0" << 0;
        QTest::newRow("True") << "True" << 1;
        QTest::newRow("minus one") << "-1" << 1;
        QTest::newRow("word") << "loud" << 0;
        QTest::newRow("empty") << "" << 0;
    }
    void beep()
    {
        QFETCH(QString, entry22);
        AppRig rig;
        rig.app().state.SettingsValues.audibleAlarms.text = entry22;
        rig.app().acquisition.tmrBeep_Timer();
        QTEST(rig.beeper.count, "beeps");
    }

    void watchdog_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("silence");
        QTest::addColumn<bool>("halts");
        QTest::addColumn<bool>("beforeMidnight"); // the silence starts at 23:59:58
        QTest::newRow("interval 2, 4 s") << "realtime"
                                         << "2" << 4 << false << false;
        QTest::newRow("interval 2, 5 s") << "realtime"
                                         << "2" << 5 << true << false;
        QTest::newRow("no interval, 2001 s") << "realtime"
                                             << "NO-INT" << 2001 << false << false;
        QTest::newRow("no interval, 2002 s") << "realtime"
                                             << "NO-INT" << 2002 << true << false;
        QTest::newRow("empty interval, 2002 s") << "realtime"
                                                << "" << 2002 << true << false;
        QTest::newRow("download, 17 s") << "download"
                                        << "2" << 17 << false << false;
        QTest::newRow("download, 18 s") << "download"
                                        << "2" << 18 << true << false;
        QTest::newRow("across midnight, 4 s") << "realtime"
                                              << "2" << 4 << false << true;
        QTest::newRow("across midnight, 5 s") << "realtime"
                                              << "2" << 5 << true << true;
    }
    void watchdog()
    {
        QFETCH(QString, mode);
        QFETCH(QString, interval);
        QFETCH(int, silence);
        QFETCH(bool, halts);
        QFETCH(bool, beforeMidnight);
        AppRig rig;
        Application& a = rig.app();
        if (beforeMidnight)
            rig.clock.set(QDateTime(QDate(2026, 3, 14), QTime(23, 59, 58)));
        a.state.Instrument.interval = SamplingInterval(interval);
        if (mode == "realtime")
            rig.startSensing();
        else
            rig.startDownload();
        rig.clock.advance(silence);
        // The box shown is the only one, even if the watchdog looks again meanwhile.
        rig.prompter.onShow
            = [&](const Prompter::Message&) { a.acquisition.tmrCheckTransmission_Timer(); };
        a.acquisition.tmrCheckTransmission_Timer();
        QCOMPARE(a.acquisition.TransmissionLost, halts);
        QCOMPARE(rig.port.isOpen(), !halts);
        QCOMPARE(a.acquisition.tmrCheckTransmission().isActive(), !halts);
        QCOMPARE(rig.prompter.titles(),
            halts ? QStringList { "IR SYSTEM HAS HALTED DATA TRANSMISSION" } : QStringList());
        QCOMPARE(menus(a), halts ? Idle : mode == "realtime" ? Sensing : Downloading);
    }

    // However a download ended, the totals stay; closing the stored points window leaves the
    // program idle, and the next download opens the window idle. START RECEIVING in a window
    // left open after a halt downloads again.
    void storedPointsWindowAfterADownload_data()
    {
        QTest::addColumn<QString>("end");
        QTest::addColumn<bool>("restart");
        QTest::newRow("window closed while receiving") << "close" << false;
        QTest::newRow("DOWNLOAD STORED DATA unchecked") << "menu" << false;
        QTest::newRow("watchdog") << "watchdog" << false;
        QTest::newRow("STOP") << "stop" << false;
        QTest::newRow("mode error") << "mode" << false;
        QTest::newRow("port loss") << "loss" << false;
        QTest::newRow("watchdog, then START RECEIVING") << "watchdog" << true;
    }
    void storedPointsWindowAfterADownload()
    {
        QFETCH(QString, end);
        QFETCH(bool, restart);
        AppRig rig;
        Application& a = rig.app();
        StoredPointsModel& w = a.storedPointsModel;
        rig.startDownload();
        QCOMPARE(menus(a), Downloading);
        QCOMPARE(w.lblAcquiredPoints.caption(), QStringLiteral("WAITING..."));
        rig.feed("#001   75\x07\x07\x07");
        const QString counts = QStringLiteral("1 READING, 2 EMPTY LOCATIONS");
        QCOMPARE(w.lblReceivedCounts.caption(), counts);
        rig.clock.advance(18);
        if (end == "watchdog")
            a.acquisition.tmrCheckTransmission_Timer();
        else if (end == "stop")
            a.acquisition.mnuStop_Click();
        else if (end == "mode")
            rig.feed("  75\x07");
        else if (end == "loss")
            rig.port.vanish(QStringLiteral("gone"));
        QCOMPARE(w.lblReceivedCounts.caption(), counts);
        if (restart) {
            a.storedPoints.cmdStartDownload_Click();
            QCOMPARE(menus(a), Downloading);
            QVERIFY(rig.port.isOpen());
            rig.feed("#002   76\x07");
            QVERIFY(a.store.text().endsWith(QStringLiteral("\t#002\t76\r\n")));
            QCOMPARE(w.lblReceivedCounts.caption(), QStringLiteral("1 READING, 0 EMPTY LOCATIONS"));
        }
        if (end == "menu")
            a.acquisition.mnuDownloadData_Click();
        else
            a.storedPoints.Form_Unload();
        QCOMPARE(menus(a), Idle);
        QVERIFY(!rig.port.isOpen());
        QCOMPARE(w.lblAcquiredPoints.caption(), QStringLiteral("STORED DATA POINTS..."));

        rig.host.calls.clear();
        a.acquisition.mnuDownloadData_Click();
        QCOMPARE(rig.host.calls, QStringList { "showStoredPoints" });
        QCOMPARE(menus(a), Downloading);
        for (Control* button : { &w.cmdSaveToTxtFile, &w.cmdSaveToExcel, &w.cmdClearAcqPts })
            QVERIFY2(button->enabled(), qPrintable(button->name()));
        QCOMPARE(w.cmdStartDownload.caption(), QStringLiteral("START RECEIVING"));
        QCOMPARE(w.cmdStartDownload.backColor(), Colors::Green);
        QCOMPARE(w.lblAcquiredPoints.foreColor(), Colors::Yellow);
    }

    // A port that does not open, and one that goes away: the operator is told once, and what
    // was on the line before is still taken.
    void portFaults()
    {
        AppRig rig;
        Application& a = rig.app();
        rig.port.failure = QStringLiteral("Permission denied");
        rig.startSensing();
        QCOMPARE(rig.prompter.titles(), QStringList { "CANNOT OPEN COMM PORT" });
        QVERIFY(rig.prompter.messages().front().text.endsWith("(/dev/fake1) CANNOT BE OPENED.\r\n"
                                                              "Permission denied"));
        QCOMPARE(menus(a), Idle);
        QVERIFY(!a.acquisition.tmrCheckTransmission().isActive());

        rig.prompter.clear();
        rig.port.failure.clear();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.port.pending.append("  77\x07");
        rig.port.vanish(QStringLiteral("No such device"));
        QCOMPARE(rig.prompter.titles(),
            (QStringList { "COMM PORT LOST", "SAVE PLOTTED DATA TO FILE?" }));
        QVERIFY(rig.prompter.messages().front().text.contains("No such device"));
        QCOMPARE(rig.chart.y(1, 1), 77.0);
        QCOMPARE(menus(a), Idle);
        // Once idle, a closed port is no news; nor is a loss under the watchdog's box.
        a.acquisition.portLost();
        QCOMPARE(rig.prompter.titles().size(), 2);
        rig.prompter.clear();
        rig.port.failure.clear();
        rig.startSensing();
        rig.clock.advance(10);
        rig.prompter.onShow = [&](const Prompter::Message&) { rig.port.vanish("gone"); };
        a.acquisition.tmrCheckTransmission_Timer();
        QCoreApplication::processEvents();
        QCOMPARE(rig.prompter.titles(), QStringList { "IR SYSTEM HAS HALTED DATA TRANSMISSION" });
    }

    // Characters arriving while a box of the receive path is open wait for it.
    void bytesDuringABoxWaitForIt()
    {
        AppRig rig;
        rig.startSensing();
        rig.prompter.onShow = [&](const Prompter::Message&) {
            rig.app().state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
            rig.feed("  81\x07  82\x07");
            QCOMPARE(rig.app().main.lblCurrentTemp.caption(), QStringLiteral("80"));
        };
        rig.feed("  80\x07");
        QCOMPARE(rig.prompter.titles(), QStringList { "TIME INTERVAL UNKNOWN." });
        QCOMPARE(rig.app().main.lblCurrentTemp.caption(), QStringLiteral("82"));
        QVERIFY(rig.lastObtained().endsWith("\r\n  81\r\n  82\r\n"));
    }
};
TALAVEX_TEST(TestLinkRules)
#include "TestLinkRules.moc"

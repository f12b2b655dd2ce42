#include "support/AppRig.h"
#include "support/Rows.h"
#include "support/TestRegistry.h"

#include "link/RecordParser.h"

#include <QTest>

namespace {
// The menus that follow the acquisition mode: 'o' enabled, '.' disabled, '*' checked.
QString menus(const Application& a)
{
    QString shown;
    for (const char* name : { "mnuSenseTemperature", "mnuDownloadData", "mnuSystemSetup", "mnuFile",
             "mnuSavePlotToFile", "mnuLoadPlotFile", "mnuShowAllPts", "mnuClearChart",
             "mnuCopyChart", "mnuTextStamp", "mnuNewAcquiredDataPoints", "mnuAbout", "mnuCharting",
             "mnuSearchForIR" }) {
        const Control* c = a.main.control(QString::fromLatin1(name));
        shown += c->checked() ? '*' : c->enabled() ? 'o' : '.';
    }
    return shown;
}
const QString Idle = "oooooooooooooo";
const QString Sensing = "*...........oo";
const QString Downloading = ".*o.ooooo.o..o";
} // namespace

// The rules of the line that whole runs cannot reach cheaply: what a record is, when the
// watchdog halts, the alarm limits, and how each way a download ends leaves the program.
class TestLinkRules : public QObject {
    Q_OBJECT
private slots:
    // What a record is against the mode (r sensing, d downloading, i idle; B a block mark):
    // kind, mode error, reading fault, temperature. A parameter's value, a stored record's
    // columns, a block's fields.
    void parsing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("parsed");
        auto row = [](const char* name, const char* text, const char* rule, const char* parsed) {
            QTest::newRow(name) << QString(text) << QString(rule) << QString(parsed);
        };
        row("short record", "12", "r", "reading - - 12");
        row("twelve characters", "  75   DEG F", "r", "reading - not-numeric -");
        row("negative long form", "  -40   DEG C", "r", "reading - - -40");
        row("half to even", "  74.5", "r", "reading - - 74");
        row("largest", "  32767", "r", "reading - - 32767");
        row("out of range", "  32768", "r", "reading - out-of-range -");
        row("word first", "  ERROR   SENSOR", "r", "reading - not-numeric -");
        row("block", "\013  DEG F\r\n", "rB", "block - not-numeric -");
        row("stored while sensing", "#001  75", "rB", "stored stored-while-sensing - -");
        row("stored while downloading", "#001  75", "d", "stored - - -");
        row("empty location", "", "d", "blank - - -");
        row("idle", "  75", "i", "reading - - -");
        row("the last run of blanks wins", "A  B   C 1", "value", "C 1");
        row("leading blanks", "  #012  101", "stored", "\t#012\t101");
        row("trailing blanks", "#3  7  ", "stored", "\t#3\t7");
        row("short lines skipped, text after the last line feed unused",
            "A1234\nB\nC1234\nD1234\nE1234\nF1234\nG1234\nH1234\nI1234\nJ1234\nK1234\nL1234\nM",
            "fields", "A1234|C1234|D1234|E1234|F1234|G1234|H1234|I1234|J1234|K1234|L1234");
        row("ten fields are no block",
            "A1234\nB1234\nC1234\nD1234\nE1234\nF1234\nG1234\nH1234\nI1234\nJ1234\n", "fields", "");
        row("a dash makes the seventh BOGUS",
            "A1234\nB1234\nC1234\nD1234\nE1234\nF1234\nG--34\nH1234\nI1234\nJ1234\nK1234\n",
            "fields", "A1234|B1234|C1234|D1234|E1234|F1234|BOGUS|H1234|I1234|J1234|K1234");
    }
    void parsing()
    {
        QFETCH(QString, text);
        QFETCH(QString, rule);
        const ParsedRecord p
            = ParseRecord({ text, rule.contains('B') }, { rule.contains('r'), rule.contains('d') });
        const char* kinds[] = { "blank", "stored", "block", "reading" };
        const char* errors[] = { "-", "stored-while-sensing", "reading-while-downloading" };
        const char* faults[] = { "-", "not-numeric", "out-of-range" };
        QString out = QStringLiteral("%1 %2 %3 %4")
                          .arg(kinds[int(p.kind)], errors[int(p.modeError)], faults[int(p.fault)],
                              p.temperature ? QString::number(*p.temperature) : "-");
        if (rule == "value")
            out = ParameterValuePart(text);
        else if (rule == "stored")
            out = FormatStoredRecord(text);
        const auto fields = ParameterBlockFields(text);
        if (rule == "fields")
            out = fields ? QStringList(fields->begin(), fields->end()).join('|') : "";
        QTEST(out, "parsed");
    }

    // The records assembled from characters, each ended by "|", "[block]" marking a block; and
    // the blank-line guard over them (E empty, T text, D empty in a download): the fifth empty
    // record counted after the first halts, until text comes.
    void records_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("records");
        QTest::newRow("line ends become blanks") << QByteArray("  75\r\n\x07\x07") << "  75  ||";
        QTest::newRow("kept from a block's tab on")
            << QByteArray("A\r\013B\r\n\007C\007") << "A \013B\r\n[block]|C|";
        QTest::newRow("a second tab begins the block anew")
            << QByteArray("\013A\r\n\013B\007") << "\013B[block]|";
        QTest::newRow("a record never ended is cut at its bound")
            << QByteArray(RecordReader::MaxRecordLength + 10, '7') + "\x07"
            << QString(RecordReader::MaxRecordLength, '7') + '|';
        QTest::newRow("the sixth empty halts") << QByteArray("EEEEEEE") << "0000011";
        QTest::newRow("text disarms") << QByteArray("EEEETEEEEE") << "0000000000";
        QTest::newRow("a download never arms") << QByteArray("DDDDDDD") << "0000000";
        QTest::newRow("armed, a download counts on") << QByteArray("EDDDDD") << "000001";
    }
    void records()
    {
        QFETCH(QByteArray, bytes);
        RecordReader reader;
        BlankLineGuard guard;
        QString records;
        for (char c : bytes) {
            if (QByteArray("EDT").contains(c))
                records += guard.halts(c != 'T', c == 'D') ? '1' : '0';
            else if (const auto record = reader.feed(c))
                records += record->text + (record->parameterBlock ? "[block]|" : "|");
        }
        QTEST(records, "records");
        QVERIFY(reader.pending().isEmpty());
    }

    // After a reading of 90, against the alarm limits 25 and 85; and the beep, which sounds
    // when settings entry 22 reads as true.
    void alarmLimits_data()
    {
        QTest::addColumn<QByteArray>("reading");
        QTest::addColumn<QString>("entry22");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("beeps");
        auto row = [](const char* name, QByteArray reading, const char* entry22, const char* shown,
                       int beeps) {
            QTest::newRow(name) << reading << QString(entry22) << QString(shown) << beeps;
        };
        row("above the high limit", "  86", "1", "86 red", 1);
        row("at the high limit", "  85", "True", "85 green", 1);
        row("below the low limit", "  24", "-1", "24 yellow", 1);
        row("at the low limit", "  25", "0", "25 green", 0);
        row("out of range", "  40000", "loud", "90 grey", 0);
        row("400 digits are no reading of 0", QByteArray(400, '9'), "", "90 grey", 0);
    }
    void alarmLimits()
    {
        QFETCH(QByteArray, reading);
        QFETCH(QString, shown);
        AppRig rig;
        Application& a = rig.app();
        a.state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        a.state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        QFETCH(QString, entry22);
        a.state.SettingsValues.audibleAlarms.text = entry22;
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        QCOMPARE(menus(a), Sensing);
        rig.feed("  90\x07" + reading + "\x07");
        const QMap<qint64, QString> colours { { Colors::Green, "green" }, { Colors::Red, "red" },
            { Colors::Yellow, "yellow" }, { Colors::Grey, "grey" } };
        QCOMPARE(a.main.lblCurrentTemp.caption() + ' '
                + colours.value(a.main.lblCurrentTemp.foreColor()),
            shown);
        QCOMPARE(a.main.lblStatCurrentTemp.foreColor(), a.main.lblCurrentTemp.foreColor());
        QVERIFY(a.main.lblStatCurrentTemp.visible());
        QCOMPARE(a.acquisition.tmrBeep().isActive(), shown.endsWith("red") || shown.endsWith("w"));
        QCOMPARE(rig.chart.pointCount(1) - 1, shown.endsWith("grey") ? 1 : 2);
        a.acquisition.tmrBeep_Timer();
        QTEST(rig.beeper.count, "beeps");
        a.acquisition.mnuStop_Click();
        QCOMPARE(menus(a), Idle);
        QVERIFY(!a.acquisition.tmrBeep().isActive() && !a.main.lblStatCurrentTemp.visible());
    }

    // mode (r sensing, d downloading), interval, seconds of silence, "!" halts, "m" from
    // 23:59:58
    void watchdog_data()
    {
        rows::add({ "r 2 4 -", "r 2 5 !", "r NO-INT 2001 -", "r NO-INT 2002 !", "r _ 2002 !",
            "d 2 17 -", "d 2 18 !", "r 2 4 - m", "r 2 5 ! m" });
    }
    void watchdog()
    {
        QFETCH(QString, row);
        const QStringList w = row.split(' ');
        const bool halts = w[3] == "!";
        AppRig rig;
        Application& a = rig.app();
        if (w.size() > 4)
            rig.clock.set(QDateTime(QDate(2026, 3, 14), QTime(23, 59, 58)));
        a.state.Instrument.interval = SamplingInterval(w[1] == "_" ? QString() : w[1]);
        if (w[0] == "r")
            rig.startSensing();
        else
            rig.startDownload();
        rig.clock.advance(w[2].toInt());
        // The box is the only one, even if the watchdog looks again meanwhile.
        rig.prompter.onShow
            = [&](const Prompter::Message&) { a.acquisition.tmrCheckTransmission_Timer(); };
        a.acquisition.tmrCheckTransmission_Timer();
        QCOMPARE(a.acquisition.TransmissionLost, halts);
        QCOMPARE(rig.port.isOpen() && a.acquisition.tmrCheckTransmission().isActive(), !halts);
        QCOMPARE(rig.prompter.titles(),
            halts ? QStringList { "IR SYSTEM HAS HALTED DATA TRANSMISSION" } : QStringList());
        QCOMPARE(menus(a), halts ? Idle : w[0] == "r" ? Sensing : Downloading);
    }

    // However a download ended, the totals stay; closing the stored points window leaves the
    // program idle, and the next download opens the window idle. START RECEIVING in a window
    // left open after a halt downloads again.
    void storedPointsWindowAfterADownload_data()
    {
        QTest::addColumn<QString>("end");
        for (const char* end :
            { "close", "menu", "watchdog", "stop", "mode error", "port loss", "watchdog, restart" })
            QTest::newRow(end) << QString(end);
    }
    void storedPointsWindowAfterADownload()
    {
        QFETCH(QString, end);
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
        if (end.startsWith("watchdog"))
            a.acquisition.tmrCheckTransmission_Timer();
        else if (end == "stop")
            a.acquisition.mnuStop_Click();
        else if (end == "mode error")
            rig.feed("  75\x07");
        else if (end == "port loss")
            rig.port.vanish(QStringLiteral("gone"));
        QCOMPARE(w.lblReceivedCounts.caption(), counts);
        if (end.endsWith("restart")) {
            a.storedPoints.cmdStartDownload_Click();
            QCOMPARE(menus(a), Downloading);
            QVERIFY(rig.port.isOpen());
            rig.feed("#002   76\x07");
            QVERIFY(a.store.text().endsWith(QStringLiteral("\t#002\t76\r\n")));
            QCOMPARE(w.lblReceivedCounts.caption(), QStringLiteral("1 READING, 0 EMPTY LOCATIONS"));
        }
        const int unloads = a.acquisition.downloadMode(); // the window is closed once
        if (end == "menu")
            a.acquisition.mnuDownloadData_Click();
        else
            a.storedPoints.Form_Unload();
        QCOMPARE(menus(a), Idle);
        QVERIFY(!rig.port.isOpen() && w.lblAcquiredPoints.caption() == "STORED DATA POINTS...");

        QCOMPARE(rig.host.calls.count("unloadStoredPoints"), unloads);
        rig.host.calls.clear();
        a.acquisition.mnuDownloadData_Click();
        QCOMPARE(rig.host.calls, QStringList { "showStoredPoints" });
        QCOMPARE(menus(a), Downloading);
        QVERIFY(w.cmdSaveToTxtFile.enabled() && w.cmdSaveToExcel.enabled()
            && w.cmdClearAcqPts.enabled());
        QCOMPARE(w.cmdStartDownload.caption(), QStringLiteral("START RECEIVING"));
        QVERIFY(w.cmdStartDownload.backColor() == Colors::Green
            && w.lblAcquiredPoints.foreColor() == Colors::Yellow);
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

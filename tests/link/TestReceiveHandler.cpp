#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "base/StringUtils.h"
#include "link/ReceiveHandler.h"

#include <QTest>

using Axis = ChartSurface::Axis;

class TestReceiveHandler : public QObject {
    Q_OBJECT
private slots:
    void parseRealTimeReading_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<double>("value");
        QTest::newRow("short record is the whole field") << "12" << true << 12.0;
        QTest::newRow("short form with spaces") << "  75" << true << 75.0;
        QTest::newRow("long form, text before the first tab") << "  1234   DEG F" << true << 1234.0;
        QTest::newRow("twelve characters, unit makes it non-numeric")
            << "  75   DEG F" << false << 75.0;
        QTest::newRow("decimal") << "  98.6" << true << 98.6;
        QTest::newRow("negative long form") << "  -40   DEG C" << true << -40.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("word") << "HELLO" << false << 0.0;
        QTest::newRow("long record, word first") << "  ERROR   SENSOR" << false << 0.0;
        QTest::newRow("group separator") << "  " << false << 0.0;
        QTest::newRow("beyond a double") << "-1E309" << true << -qInf();
    }
    void parseRealTimeReading()
    {
        QFETCH(QString, line);
        QFETCH(bool, valid);
        QFETCH(double, value);
        const RealTimeReading reading = ParseRealTimeReading(line);
        QCOMPARE(reading.valid, valid);
        QCOMPARE(reading.value, value);
    }

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
        row("reading, half to even", "  74.5", false, "realtime", K::Reading, E::None, F::None, 74);
        row("out of range", "  99999", false, "realtime", K::Reading, E::None, F::OutOfRange, -1);
        row("beyond a double", "1E309", false, "realtime", K::Reading, E::None, F::OutOfRange, -1);
        row("blank", "", false, "realtime", K::Blank, E::None, F::NotNumeric, -1);
        row("block", "\x0b  DEG F\r\n", true, "realtime", K::ParameterBlock, E::None, F::NotNumeric,
            -1);
        row("stored while sensing", "#001  75", true, "realtime", K::StoredPoint,
            E::StoredWhileRealTime, F::None, -1);
        row("reading while downloading", "  75", false, "download", K::Reading,
            E::ReadingWhileDownload, F::None, -1);
        row("bare CR LF while downloading", "  ", false, "download", K::Reading, E::None, F::None,
            -1);
        row("no reading outside sensing", "  75", false, "idle", K::Reading, E::None, F::None, -1);
    }
    void parseRecord()
    {
        QFETCH(QString, text);
        QFETCH(bool, block);
        QFETCH(QString, mode);
        QFETCH(int, temperature);
        const ParsedRecord parsed = ParseRecord({ text, block },
            { mode == QLatin1String("realtime"), mode == QLatin1String("download") });
        QTEST(int(parsed.kind), "kind");
        QTEST(int(parsed.modeError), "error");
        QTEST(int(parsed.fault), "fault");
        QCOMPARE(int(parsed.temperature.value_or(-1)), temperature);
    }

    void valuePart_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("value");
        auto row = [](const char* name, const char* field, const char* value) {
            QTest::newRow(name) << QString(field) << QString(value);
        };
        row("interval", "INT (SECS)      2\r", "2");
        row("units with control characters", "\x0b  DEG F\r", "DEG F");
        row("no run of blanks", " EMISSIVITY 0.95 ", "EMISSIVITY 0.95");
        row("several runs, last wins", "A  B   C 1", "C 1");
        row("empty", "", "");
    }
    void valuePart()
    {
        QFETCH(QString, field);
        QFETCH(QString, value);
        QCOMPARE(ParameterValuePart(field), value);
    }

    void storedRecordLayout_data()
    {
        QTest::addColumn<QString>("record");
        QTest::addColumn<QString>("line");
        auto row = [](const char* name, const char* record, const char* line) {
            QTest::newRow(name) << QString(record) << QString(line);
        };
        row("stored reading", "#001   75   DEG F", "\t#001\t75\tDEG F");
        row("leading blanks", "  #012  101", "\t#012\t101");
        row("group separator", "  ", "\r\n\t");
        row("trailing blanks", "#3  7  ", "\t#3\t7");
    }
    void storedRecordLayout()
    {
        QFETCH(QString, record);
        QFETCH(QString, line);
        QCOMPARE(FormatStoredRecord(record), line);
    }

    // One record through the whole handler, in each mode.
    void decisionTable_data()
    {
        QTest::addColumn<QString>("mode"); // "realtime", "download", "idle"
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("title"); // message box title, or empty
        QTest::addColumn<bool>("stopped");
        QTest::addColumn<int>("readingsPlotted");
        QTest::addColumn<QString>("storeText");
        QTest::newRow("stored record while sensing")
            << "realtime" << QByteArray("#001   75   DEG F\x07")
            << "RECEIVED STORED DATA WHILE IN REAL TIME MODE" << true << 0 << "";
        QTest::newRow("reading while downloading")
            << "download" << QByteArray("  75\x07")
            << "RECEIVED REAL TIME DATA WHILE IN DOWNLOAD STORED DATA MODE" << true << 0 << "";
        QTest::newRow("bare CR LF while downloading is a stored record")
            << "download" << QByteArray("\r\n\x07") << "" << false << 0 << "\r\n\r\n\t\r\n";
        QTest::newRow("stored record while downloading")
            << "download" << QByteArray("#001   75   DEG F\x07") << "" << false << 0
            << "\r\n\t#001\t75\tDEG F\r\n";
        QTest::newRow("empty location while downloading")
            << "download" << QByteArray("\x07") << "" << false << 0
            << "\r\nEMPTY LOCATION - NO DATA.\r\n";
        QTest::newRow("numeric reading while sensing")
            << "realtime" << QByteArray("  1234   DEG F\x07") << "" << false << 1 << "";
        QTest::newRow("short reading while sensing")
            << "realtime" << QByteArray("12\x07") << "" << false << 1 << "";
        QTest::newRow("non-numeric reading while sensing")
            << "realtime" << QByteArray("  ERROR   SENSOR\x07") << "" << false << 0 << "";
        QTest::newRow("reading out of 16-bit range is dropped")
            << "realtime" << QByteArray("  99999\x07") << "" << false << 0 << "";
        QTest::newRow("400 digits are no reading of 0")
            << "realtime" << QByteArray(400, '9') + '\x07' << "" << false << 0 << "";
        QTest::newRow("stored record while idle passes")
            << "idle" << QByteArray("#001   75\x07") << "" << false << 0 << "";
    }
    void decisionTable()
    {
        QFETCH(QString, mode);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, title);
        QFETCH(bool, stopped);
        QFETCH(int, readingsPlotted);
        QFETCH(QString, storeText);

        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("2"));
        if (mode == QLatin1String("realtime"))
            rig.startSensing();
        else if (mode == QLatin1String("download"))
            rig.startDownload();
        else
            rig.port.open();
        rig.prompter.clear();
        rig.feed(bytes);

        QCOMPARE(rig.prompter.titles(), title.isEmpty() ? QStringList() : QStringList { title });
        if (!title.isEmpty()) {
            const QString cause = rig.prompter.messages().front().text;
            QVERIFY(cause.endsWith(QStringLiteral("\r\nPROGRAM HAS BEEN HALTED,\r\nPLEASE CHECK "
                                                  "YOUR DESIRED MODE, AND RESUME OPERATION.")));
        }
        if (mode != QLatin1String("idle")) {
            QCOMPARE(!a.main.mnuSenseTemperature.checked() && !a.main.mnuDownloadData.checked(),
                stopped);
            QCOMPARE(rig.port.isOpen(), !stopped);
        }
        QCOMPARE(rig.chart.pointCount(1) - 1, readingsPlotted);
        QCOMPARE(a.store.text(), storeText);
        QVERIFY(a.receiver.reader().pending().isEmpty());
    }

    void blankLineGuard_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("halts");
        QTest::newRow("five empty records do not halt") << QByteArray(5, '\x07') << false;
        QTest::newRow("the sixth halts") << QByteArray(6, '\x07') << true;
        QTest::newRow("a reading between disarms it")
            << QByteArray(4, '\x07') + "  75\x07" + QByteArray(4, '\x07') << false;
    }
    void blankLineGuard()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, halts);
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("2"));
        rig.startSensing();
        // The box is left open past the interval and 2 s: the watchdog adds no box of its own.
        rig.prompter.onShow = [&](const Prompter::Message&) {
            rig.clock.advance(10);
            if (a.acquisition.tmrCheckTransmission().isActive())
                a.acquisition.tmrCheckTransmission_Timer();
        };
        rig.feed("  75\x07" + bytes);
        // Stop runs once: one offer to save the reading plotted.
        const QStringList halt { "RECEIVING BLANK LINES AS DATA.", "SAVE PLOTTED DATA TO FILE?" };
        QCOMPARE(rig.prompter.titles(), halts ? halt : QStringList());
        QCOMPARE(a.main.mnuSenseTemperature.checked(), !halts);
        if (halts) {
            const auto box = rig.prompter.messages().front();
            QCOMPARE(box.text,
                QStringLiteral("IR SYSTEM IS SENDING BLANK LINES.\r\nPROGRAM HAS BEEN HALTED,\r\n"
                               "PLEASE CHECK YOUR DESIRED MODE, AND RESUME OPERATION."));
            QCOMPARE(box.buttons, Prompter::Buttons::Ok);
            QCOMPARE(box.icon, Prompter::Icon::None);
        }
    }

    void emptyLocationsNeverHaltADownload()
    {
        AppRig rig;
        rig.startDownload();
        rig.feed(QByteArray(10, '\x07'));
        QVERIFY(rig.prompter.titles().isEmpty());
        QCOMPARE(rig.app().store.text().count(QStringLiteral("EMPTY LOCATION - NO DATA.")), 10);
        QCOMPARE(rig.app().storedPointsModel.lblAcquiredPoints.caption(),
            QStringLiteral("RECEIVING..."));
    }

    void parameterBlock()
    {
        AppRig rig;
        rig.startSensing();
        rig.feed(AppRig::parameterBlock("  DEG F", "2", "---"));
        Application& a = rig.app();
        const QStringList expected { "DEG F", "2", "0.95", "200", "50", "152", "******", "70",
            "101" };
        for (int i = 1; i <= 9; ++i)
            QCOMPARE(a.main.lblSystParameters(i).caption(), expected.at(i - 1));
        QCOMPARE(a.state.Instrument.ParameterFields[6], QStringLiteral("BOGUS"));
        QCOMPARE(a.state.Instrument.SystemParameterText[1], QStringLiteral("INT (SECS)      2"));
        QCOMPARE(a.state.TimeInterval, 2.0f);
        // The first reading of the block is plotted at X = 0.
        QCOMPARE(rig.chart.pointCount(1), 2);
        QCOMPARE(rig.chart.x(1, 1), 0.0);
        QCOMPARE(rig.chart.y(1, 1), 1234.0);
        QVERIFY(rig.prompter.titles().isEmpty());
        // A block is not a reading: the current-temperature label stays empty.
        QCOMPARE(a.main.lblCurrentTemp.caption(), QString());
    }

    void parameterBlockBytesInLastObtainedFile()
    {
        AppRig rig;
        rig.startSensing();
        const QByteArray header = rig.lastObtained();
        // A block begun again drops what came before it; a block of fewer than 11 fields (a
        // lone vertical tab among them) changes nothing: no lines, no labels, no reading.
        const QByteArray cutShort = "\x0b  DEG F\r\nINT (SECS)      5\r\n";
        rig.feed(cutShort + AppRig::parameterBlock("  DEG C", "2", "72") + "\x0b\x07" + cutShort
            + "\x07  1234   DEG F\x07  80\x07");
        QByteArray expected = header;
        expected += "\t\x0b  DEG C\r\r\n"
                    "\tINT (SECS)      2\r\r\n"
                    "\tEMISSIVITY      0.95\r\r\n"
                    "\tHI ALARM        200\r\r\n"
                    "\tLO ALARM        50\r\r\n"
                    "\tMAX TEMP        152\r\r\n"
                    "\tAMB TEMP        72\r\r\n"
                    "\tMIN TEMP        70\r\r\n"
                    "\tAVG TEMP        101\r\r\n"
                    "\t\r\n"
                    "  1234   DEG F\r\r\n"
                    "  1234\t  DEG\tF\r\n" // a record after the block: blanks become tabs
                    "  80\r\n";
        QCOMPARE(rig.lastObtained(), expected);
        QCOMPARE(rig.app().main.lblSystParameters(1).caption(), QStringLiteral("DEG C"));
        QCOMPARE(rig.app().main.lblSystParameters(2).caption(), QStringLiteral("2"));
        QCOMPARE(rig.chart.pointCount(1) - 1, 3);
    }

    void unknownIntervalAskedOnce()
    {
        AppRig rig;
        rig.startSensing();
        rig.feed("  75\x07  76\x07");
        QCOMPARE(rig.prompter.titles(), QStringList { "TIME INTERVAL UNKNOWN." });
        QCOMPARE(rig.prompter.messages().front().text, QStringLiteral("PLEASE RESTART IR SYSTEM."));
        QCOMPARE(rig.app().main.lblSystParameters(2).caption(), QStringLiteral("NO-INT"));
        // With no interval known nothing is plotted and nothing is logged after the header.
        QCOMPARE(rig.chart.pointCount(1), 1);
        QVERIFY(!rig.lastObtained().contains("75"));
    }

    void alarmColours_data()
    {
        QTest::addColumn<QByteArray>("reading");
        QTest::addColumn<qint64>("colour");
        QTest::addColumn<bool>("beeping");
        QTest::newRow("above the high limit") << QByteArray("  86") << Colors::Red << true;
        QTest::newRow("at the high limit") << QByteArray("  85") << Colors::Green << false;
        QTest::newRow("below the low limit") << QByteArray("  24") << Colors::Yellow << true;
        QTest::newRow("at the low limit") << QByteArray("  25") << Colors::Green << false;
        // An unusable reading greys the last one and silences the alarm.
        QTest::newRow("out of range") << QByteArray("  40000") << Colors::Grey << false;
        QTest::newRow("not numeric") << QByteArray("ERROR") << Colors::Grey << false;
    }
    void alarmColours()
    {
        QFETCH(QByteArray, reading);
        QFETCH(qint64, colour);
        QFETCH(bool, beeping);
        AppRig rig;
        Application& a = rig.app();
        a.state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        a.state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.feed("  90\x07" + reading + "\x07");
        QCOMPARE(a.main.lblCurrentTemp.caption(),
            QString::fromLatin1(colour == Colors::Grey ? "90" : reading.trimmed()));
        QCOMPARE(a.main.lblCurrentTemp.foreColor(), colour);
        QCOMPARE(a.main.lblStatCurrentTemp.foreColor(), colour);
        QVERIFY(a.main.lblStatCurrentTemp.visible());
        QCOMPARE(a.acquisition.tmrBeep().isActive(), beeping);
    }

    void endlessRecordIsBounded()
    {
        AppRig rig;
        rig.app().state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        const QByteArray noise(4 * RecordReader::MaxRecordLength, '7');
        rig.feed(noise);
        QCOMPARE(rig.app().receiver.reader().pending().size(), RecordReader::MaxRecordLength);
        rig.feed("\x07  80\x07");
        QVERIFY(rig.app().receiver.reader().pending().isEmpty());
        QCOMPARE(rig.app().main.lblCurrentTemp.caption(), QStringLiteral("80"));
    }

    void bytesDuringABoxWaitForIt()
    {
        AppRig rig;
        rig.startSensing();
        // While the unknown-interval box is open, two more readings arrive on the line.
        rig.prompter.onShow = [&](const Prompter::Message&) {
            rig.app().state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
            rig.feed("  81\x07  82\x07");
            // Nothing of them has been handled while the box is open.
            QCOMPARE(rig.app().main.lblCurrentTemp.caption(), QStringLiteral("80"));
            QCOMPARE(rig.chart.pointCount(1), 1);
        };
        rig.feed("  80\x07");
        rig.prompter.onShow = nullptr;
        QCOMPARE(rig.app().main.lblCurrentTemp.caption(), QStringLiteral("82"));
        QCOMPARE(rig.chart.pointCount(1) - 1, 2);
        QVERIFY(rig.lastObtained().endsWith("  81\r\n  82\r\n"));
    }
};
TALAVEX_TEST(TestReceiveHandler)
#include "TestReceiveHandler.moc"

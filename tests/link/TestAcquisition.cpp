#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include <QTest>

namespace {
struct MenuState {
    const char* name;
    bool enabled;
    bool checked;
};
} // namespace

class TestAcquisition : public QObject {
    Q_OBJECT

    static void checkMenus(Application& a, const std::vector<MenuState>& expected)
    {
        for (const MenuState& m : expected) {
            Control* c = a.main.control(QString::fromLatin1(m.name));
            QVERIFY2(c, m.name);
            QVERIFY2(c->enabled() == m.enabled, m.name);
            QVERIFY2(c->checked() == m.checked, m.name);
        }
    }
    static std::vector<MenuState> idleMenus()
    {
        return { { "mnuSenseTemperature", true, false }, { "mnuDownloadData", true, false },
            { "mnuSystemSetup", true, false }, { "mnuFile", true, false },
            { "mnuSavePlotToFile", true, false }, { "mnuLoadPlotFile", true, false },
            { "mnuShowAllPts", true, false }, { "mnuClearChart", true, false },
            { "mnuCopyChart", true, false }, { "mnuTextStamp", true, false },
            { "mnuNewAcquiredDataPoints", true, false }, { "mnuAbout", true, false },
            { "mnuCharting", true, false }, { "mnuSearchForIR", true, false } };
    }
    static std::vector<MenuState> downloadMenus()
    {
        return { { "mnuDownloadData", true, true }, { "mnuSenseTemperature", false, false },
            { "mnuFile", false, false }, { "mnuTextStamp", false, false },
            { "mnuAbout", false, false }, { "mnuCharting", false, false },
            { "mnuSearchForIR", true, false } };
    }

private slots:
    void menusWhileSensing()
    {
        AppRig rig;
        Application& a = rig.app();
        rig.startSensing();
        checkMenus(a,
            { { "mnuSenseTemperature", true, true }, { "mnuSystemSetup", false, false },
                { "mnuFile", false, false }, { "mnuSavePlotToFile", false, false },
                { "mnuLoadPlotFile", false, false }, { "mnuShowAllPts", false, false },
                { "mnuClearChart", false, false }, { "mnuCopyChart", false, false },
                { "mnuDownloadData", false, false }, { "mnuTextStamp", false, false },
                { "mnuNewAcquiredDataPoints", false, false }, { "mnuAbout", false, false },
                { "mnuCharting", true, false } });
        QVERIFY(rig.port.isOpen());
        QVERIFY(a.acquisition.tmrCheckTransmission().isActive());
        QVERIFY(a.acquisition.lastObtainedFile().isOpen());
        QVERIFY(!a.state.PlotSaved);
    }

    void menusWhileDownloading()
    {
        AppRig rig;
        Application& a = rig.app();
        rig.startDownload();
        checkMenus(a, downloadMenus());
        QVERIFY(rig.host.calls.contains(QStringLiteral("showStoredPoints")));
        QCOMPARE(a.storedPointsModel.cmdStartDownload.caption(), QStringLiteral("STOP RECEIVING"));
        QCOMPARE(a.storedPointsModel.lblAcquiredPoints.caption(), QStringLiteral("WAITING..."));
        QVERIFY(!a.storedPointsModel.cmdClearAcqPts.enabled());
    }

    void stopReturnsEverythingToIdle_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("from sensing") << "realtime";
        QTest::newRow("from a download") << "download";
    }
    void stopReturnsEverythingToIdle()
    {
        QFETCH(QString, mode);
        AppRig rig;
        Application& a = rig.app();
        a.main.mnuSearchForIR.setChecked(true);
        if (mode == QLatin1String("realtime"))
            rig.startSensing();
        else
            rig.startDownload();
        a.acquisition.mnuStop_Click();
        checkMenus(a, idleMenus());
        QVERIFY(!rig.port.isOpen());
        QVERIFY(!a.acquisition.tmrCheckTransmission().isActive());
        QVERIFY(!a.acquisition.tmrBeep().isActive());
        QVERIFY(!a.acquisition.lastObtainedFile().isOpen());
        QVERIFY(!a.main.lblStatCurrentTemp.visible());
        QCOMPARE(a.storedPointsModel.cmdStartDownload.caption(), QStringLiteral("START RECEIVING"));
        // An empty chart asks nothing.
        QVERIFY(!rig.host.calls.contains(QStringLiteral("offerToSavePlot")));
        QVERIFY(rig.prompter.titles().isEmpty());
    }

    void stopOffersToSaveAPlot()
    {
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.feed("  80\x07");
        a.acquisition.mnuSenseTemperature_Click();
        QCOMPARE(
            rig.prompter.titles(), QStringList { QStringLiteral("SAVE PLOTTED DATA TO FILE?") });
        QVERIFY(!a.main.mnuSenseTemperature.checked());
    }

    void watchdog_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<int>("silence");
        QTest::addColumn<QString>("interval");
        QTest::addColumn<bool>("halts");
        QTest::addColumn<bool>("beforeMidnight"); // the silence starts at 23:59:58
        QTest::newRow("interval 2, 4 s") << "realtime" << 4 << "2" << false << false;
        QTest::newRow("interval 2, 5 s") << "realtime" << 5 << "2" << true << false;
        QTest::newRow("no interval, 2001 s") << "realtime" << 2001 << "NO-INT" << false << false;
        QTest::newRow("no interval, 2002 s") << "realtime" << 2002 << "NO-INT" << true << false;
        QTest::newRow("empty interval, 2002 s") << "realtime" << 2002 << "" << true << false;
        QTest::newRow("download, 17 s") << "download" << 17 << "2" << false << false;
        QTest::newRow("download, 18 s") << "download" << 18 << "2" << true << false;
        QTest::newRow("across midnight, 4 s") << "realtime" << 4 << "2" << false << true;
        QTest::newRow("across midnight, 5 s") << "realtime" << 5 << "2" << true << true;
        QTest::newRow("download across midnight") << "download" << 18 << "2" << true << true;
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
        if (mode == QLatin1String("realtime"))
            rig.startSensing();
        else
            rig.startDownload();
        rig.clock.advance(silence);
        a.acquisition.tmrCheckTransmission_Timer();
        QCOMPARE(a.acquisition.TransmissionLost, halts);
        QCOMPARE(rig.port.isOpen(), !halts);
        if (!halts) {
            QVERIFY(rig.prompter.titles().isEmpty());
            return;
        }
        QCOMPARE(rig.prompter.titles(), QStringList { "IR SYSTEM HAS HALTED DATA TRANSMISSION" });
        const auto box = rig.prompter.messages().front();
        QCOMPARE(box.text,
            QStringLiteral("IR SYSTEM IS NOT TRANSMITTING!\r\nDATA LOGGING HAS BEEN HALTED."));
        QCOMPARE(box.icon, Prompter::Icon::Exclamation);
        QVERIFY(!a.acquisition.tmrCheckTransmission().isActive());
        if (mode == QLatin1String("download")) {
            // The stored points window is back to idle with its buttons enabled.
            QCOMPARE(
                a.storedPointsModel.cmdStartDownload.caption(), QStringLiteral("START RECEIVING"));
            QCOMPARE(a.storedPointsModel.lblAcquiredPoints.caption(),
                QStringLiteral("STORED DATA POINTS..."));
            QVERIFY(a.storedPointsModel.cmdSaveToTxtFile.enabled());
            QVERIFY(a.storedPointsModel.cmdClearAcqPts.enabled());
        }
    }

    void watchdogShowsItsBoxOnce()
    {
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.clock.advance(10);
        rig.prompter.onShow
            = [&](const Prompter::Message&) { a.acquisition.tmrCheckTransmission_Timer(); };
        a.acquisition.tmrCheckTransmission_Timer();
        QCOMPARE(rig.prompter.titles().size(), 1);
    }

    void charactersKeepTheWatchdogQuiet()
    {
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("2"));
        rig.startSensing();
        for (int i = 0; i < 10; ++i) {
            rig.clock.advance(3);
            rig.feed(" ");
            a.acquisition.tmrCheckTransmission_Timer();
        }
        QVERIFY(!a.acquisition.TransmissionLost);
    }

    void portThatCannotOpen()
    {
        AppRig rig;
        Application& a = rig.app();
        rig.port.failure = QStringLiteral("Permission denied");
        a.acquisition.mnuSenseTemperature_Click();
        QCOMPARE(rig.prompter.titles(), QStringList { "CANNOT OPEN COMM PORT" });
        const QString text = rig.prompter.messages().front().text;
        QVERIFY(text.contains(QStringLiteral("/dev/fake1")));
        QVERIFY(text.contains(QStringLiteral("Permission denied")));
        QVERIFY(!a.main.mnuSenseTemperature.checked());
        QVERIFY(!a.acquisition.tmrCheckTransmission().isActive());
    }

    void vanishingPortHaltsWithAMessage()
    {
        AppRig rig;
        Application& a = rig.app();
        rig.startSensing();
        rig.port.vanish(QStringLiteral("No such device"));
        QCOMPARE(rig.prompter.titles(), QStringList { "COMM PORT LOST" });
        QVERIFY(rig.prompter.messages().front().text.contains(QStringLiteral("No such device")));
        QVERIFY(!a.main.mnuSenseTemperature.checked());
        QVERIFY(!a.acquisition.tmrCheckTransmission().isActive());
        // Once idle, a closed port is no news.
        rig.prompter.clear();
        a.acquisition.portLost();
        QVERIFY(rig.prompter.titles().isEmpty());
    }

    void lossKeepsWhatArrivedAndIsToldOnce()
    {
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        // A reading already on the line when the device goes away is still shown.
        rig.port.pending.append("  77\x07");
        rig.port.vanish(QStringLiteral("No such device"));
        QCOMPARE(a.main.lblCurrentTemp.caption(), QString());
        // The loss, then Stop's offer to save the reading now on the chart.
        QCOMPARE(rig.prompter.titles(),
            (QStringList { "COMM PORT LOST", "SAVE PLOTTED DATA TO FILE?" }));
        QVERIFY(a.chart.ChartHasPoints());
        QVERIFY(rig.lastObtained().endsWith("  77\r\n"));

        // A loss while the watchdog's box is open adds no second box: the halt already said it.
        AppRig second;
        Application& b = second.app();
        b.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        second.startSensing();
        second.clock.advance(10);
        second.prompter.onShow
            = [&](const Prompter::Message&) { second.port.vanish(QStringLiteral("gone")); };
        b.acquisition.tmrCheckTransmission_Timer();
        second.prompter.onShow = nullptr;
        QCoreApplication::processEvents();
        QCOMPARE(
            second.prompter.titles(), QStringList { "IR SYSTEM HAS HALTED DATA TRANSMISSION" });
        QVERIFY(!b.main.mnuSenseTemperature.checked());
    }

    void beep_data()
    {
        QTest::addColumn<QString>("entry22");
        QTest::addColumn<int>("beeps");
        QTest::newRow("on") << "1" << 1;
        QTest::newRow("off") << "0" << 0;
        QTest::newRow("True") << "True" << 1;
        QTest::newRow("word") << "loud" << 0;
        QTest::newRow("empty") << "" << 0;
    }
    void beep()
    {
        QFETCH(QString, entry22);
        QFETCH(int, beeps);
        AppRig rig;
        rig.app().state.SettingsValues.audibleAlarms.text = entry22;
        rig.app().acquisition.tmrBeep_Timer();
        QCOMPARE(rig.beeper.count, beeps);
    }

    // However a download ended, closing the stored points window leaves the program idle and the
    // next download opens the window idle. START RECEIVING in a window left open after a halt
    // downloads again. The totals of the transfer stay after it ends.
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
        rig.feed("#001   75\x07\x07\x07");
        const QString counts = QStringLiteral("1 READING, 2 EMPTY LOCATIONS");
        QCOMPARE(w.lblReceivedCounts.caption(), counts);
        rig.clock.advance(18);
        if (end == QLatin1String("watchdog"))
            a.acquisition.tmrCheckTransmission_Timer();
        else if (end == QLatin1String("stop"))
            a.acquisition.mnuStop_Click();
        else if (end == QLatin1String("mode"))
            rig.feed("  75\x07");
        else if (end == QLatin1String("loss"))
            rig.port.vanish(QStringLiteral("gone"));
        QCOMPARE(w.lblReceivedCounts.caption(), counts);
        if (restart) {
            a.storedPoints.cmdStartDownload_Click();
            checkMenus(a, downloadMenus());
            QVERIFY(rig.port.isOpen());
            rig.feed("#002   76\x07");
            QVERIFY(a.store.text().endsWith(QStringLiteral("\t#002\t76\r\n")));
            QCOMPARE(w.lblReceivedCounts.caption(), QStringLiteral("1 READING, 0 EMPTY LOCATIONS"));
        }
        if (end == QLatin1String("menu"))
            a.acquisition.mnuDownloadData_Click();
        else
            a.storedPoints.Form_Unload();
        checkMenus(a, idleMenus());
        QVERIFY(!rig.port.isOpen());
        QCOMPARE(w.lblAcquiredPoints.caption(), QStringLiteral("STORED DATA POINTS..."));

        rig.host.calls.clear();
        a.acquisition.mnuDownloadData_Click();
        QCOMPARE(rig.host.calls.count(QStringLiteral("showStoredPoints")), 1);
        checkMenus(a, downloadMenus());
        for (Control* button : { &w.cmdSaveToTxtFile, &w.cmdSaveToExcel, &w.cmdClearAcqPts })
            QVERIFY2(button->enabled(), qPrintable(button->name()));
        QCOMPARE(w.cmdStartDownload.caption(), QStringLiteral("START RECEIVING"));
        QCOMPARE(w.cmdStartDownload.backColor(), Colors::Green);
        QCOMPARE(w.lblAcquiredPoints.foreColor(), Colors::Yellow);
    }
};
TALAVEX_TEST(TestAcquisition)
#include "TestAcquisition.moc"

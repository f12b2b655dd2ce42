#include "support/AppRig.h"
#include "support/SettingsLines.h"
#include "support/TestRegistry.h"

#include "app/CommandLine.h"

#include <QFile>
#include <QTest>

using Axis = ChartSurface::Axis;

namespace {
using settingslines::factory;
QStringList readLines(const QString& path) { return settingslines::read(path); }
void writeSettings(const QString& path, const QStringList& lines)
{
    settingslines::write(path, lines);
}
} // namespace

class TestMainController : public QObject {
    Q_OBJECT
private slots:
    void checkMemory_data()
    {
        QTest::addColumn<quint64>("bytes");
        QTest::addColumn<bool>("warns");
        QTest::newRow("16,000,000 bytes is 15 after the division") << quint64(16000000) << false;
        QTest::newRow("15,000,000 bytes is 14") << quint64(15000000) << true;
        QTest::newRow("plenty") << quint64(8ull << 30) << false;
    }
    void checkMemory()
    {
        QFETCH(quint64, bytes);
        QFETCH(bool, warns);
        AppRig rig;
        rig.systemInfo.totalMemory = bytes;
        rig.app().controller.CheckMemory();
        QCOMPARE(rig.prompter.messages().size(), warns ? 1u : 0u);
        if (warns) {
            const auto box = rig.prompter.messages().front();
            QCOMPARE(box.title, QStringLiteral("WARNING - SYSTEM'S RAM BELOW REQUIREMENTS"));
            QCOMPARE(box.text,
                QStringLiteral(
                    "YOUR SYSTEM IS BELOW THE MINIMUM MEMORY REQUIREMENTS OF 16M BYTES,\n"
                    "PROGRAM MAY NOT RUN PROPERLY."));
            QCOMPARE(box.icon, Prompter::Icon::Exclamation);
        }
    }

    void firstStartUsesFactorySettings()
    {
        AppRig rig;
        Application& a = rig.app();
        a.main.mnuRealTimeGraphOn.setChecked(false);
        a.controller.Form_Load();
        QCOMPARE(rig.chart.axisMax(Axis::Y), 100.0);
        QCOMPARE(rig.chart.axisMax(Axis::X), 60.0);
        QCOMPARE(rig.chart.axisTitle(Axis::Y), QStringLiteral("TEMPERATURE"));
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("SECONDS"));
        QVERIFY(a.main.mnuRealTimeGraphOn.checked());
        QVERIFY(!a.main.mnuAutoCompressed.checked());
        QCOMPARE(a.state.SettingsValues.highAlarmLimit.text, QStringLiteral("85"));
        QCOMPARE(a.state.SettingsValues.lowAlarmLimit.text, QStringLiteral("25"));
        QCOMPARE(a.state.CommPortNumber, qint16(1));
        QCOMPARE(rig.chart.pointCount(1), 1);
        QVERIFY(rig.prompter.titles().isEmpty());
    }

    // The last load step loads the graph settings panel and the temperature bar window once and
    // unloads them at once: their defaults are in place, neither stays loaded.
    void loadRunsThePanelsOnce()
    {
        AppRig rig;
        Application& a = rig.app();
        QStringList lines = factory();
        lines[0] = "250";
        lines[2] = "120";
        lines[8] = "1";
        writeSettings(rig.dir.filePath("Settings.dat"), lines);
        QVERIFY(a.graphSettingsModel.txtMaxX.caption().isEmpty());
        a.controller.Form_Load();
        QCOMPARE(a.graphSettingsModel.txtMaxX.caption(), QStringLiteral("120"));
        QCOMPARE(a.graphSettingsModel.txtMaxY.caption(), QStringLiteral("250"));
        QCOMPARE(a.graphSettingsModel.txtYTitle.caption(), QStringLiteral("TEMPERATURE"));
        QVERIFY(a.graphSettingsModel.chkAutoRange.checked());
        QVERIFY(!a.graphSettings.loaded());
        QVERIFY(!a.state.GraphSettingsOpen);
        QVERIFY(!a.chart.panel());
        QVERIFY(!a.state.TempBarVisible);
        QVERIFY(!a.main.mnuViewTempBar.checked());
        QVERIFY(rig.prompter.shown.empty());
    }

    void portEntry_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("port");
        QTest::newRow("two") << "2" << 2;
        QTest::newRow("word leaves the port") << "COM2" << 1;
        QTest::newRow("empty leaves the port") << "" << 1;
        QTest::newRow("rounded") << "1.6" << 2;
    }
    void portEntry()
    {
        QFETCH(QString, entry);
        QFETCH(int, port);
        AppRig rig;
        QStringList lines = factory();
        lines[19] = entry;
        writeSettings(rig.dir.filePath("Settings.dat"), lines);
        rig.app().controller.Form_Load();
        QCOMPARE(int(rig.app().state.CommPortNumber), port);
        QCOMPARE(rig.port.portNumber(), port);
    }

    void saveRules_data()
    {
        QTest::addColumn<QString>("loaded");
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("saved");
        QTest::newRow("auto-range word becomes 0") << "yes" << 8 << "0";
        QTest::newRow("auto-range 2 becomes 0") << "2" << 8 << "0";
        QTest::newRow("limit lines empty becomes 0") << "" << 21 << "0";
        QTest::newRow("unused entry kept") << "keep me" << 4 << "keep me";
        QTest::newRow("bar entries kept") << "250" << 11 << "250";
        QTest::newRow("audible alarm kept") << "0" << 22 << "0";
        QTest::newRow("compressed mode") << "1" << 9 << "1";
        QTest::newRow("unit 7 kept as the index") << "7" << 16 << "7";
    }
    void saveRules()
    {
        QFETCH(int, entry);
        QFETCH(QString, loaded);
        QFETCH(QString, saved);
        AppRig rig;
        QStringList lines = factory();
        lines[entry] = loaded;
        writeSettings(rig.dir.filePath("Settings.dat"), lines);
        rig.app().controller.Form_Load();
        rig.app().controller.Shutdown();
        const QStringList written = readLines(rig.dir.filePath("Settings.dat"));
        QCOMPARE(written.size(), 23);
        QCOMPARE(written.at(entry), saved);
    }

    void timeUnitOutsideTheListKeepsTheTitle()
    {
        AppRig rig;
        QStringList lines = factory();
        lines[16] = QStringLiteral("7");
        rig.chart.setAxisTitle(Axis::X, QStringLiteral("ELAPSED"));
        writeSettings(rig.dir.filePath("Settings.dat"), lines);
        rig.app().controller.Form_Load();
        QCOMPARE(rig.app().state.TimeUnitIndex, qint16(7));
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("ELAPSED"));
        lines[16] = QStringLiteral("2");
        writeSettings(rig.dir.filePath("Settings.dat"), lines);
        rig.app().settings.LoadSettings(false);
        QCOMPARE(rig.chart.axisTitle(Axis::X), QStringLiteral("HOURS"));
    }

    void exitClosesThePortBeforeSaving()
    {
        AppRig rig;
        Application& a = rig.app();
        a.controller.Form_Load();
        rig.startSensing();
        bool settingsExistedAtClose = true;
        rig.port.onClose
            = [&] { settingsExistedAtClose = QFile::exists(rig.dir.filePath("Settings.dat")); };
        a.controller.Shutdown();
        QVERIFY(!rig.port.isOpen());
        QVERIFY(!settingsExistedAtClose);
        QVERIFY(QFile::exists(rig.dir.filePath("Settings.dat")));
    }

    void plottingModesExcludeEachOther_data()
    {
        QTest::addColumn<QString>("clicks");
        QTest::addColumn<bool>("strip");
        QTest::addColumn<bool>("compressed");
        QTest::newRow("strip then compressed") << "SC" << false << true;
        QTest::newRow("compressed then strip") << "CS" << true << false;
        QTest::newRow("strip twice turns both off") << "SS" << false << false;
        QTest::newRow("compressed twice") << "CC" << false << false;
    }
    void plottingModesExcludeEachOther()
    {
        QFETCH(QString, clicks);
        QFETCH(bool, strip);
        QFETCH(bool, compressed);
        AppRig rig;
        Application& a = rig.app();
        a.main.mnuRealTimeGraphOn.setChecked(false);
        for (QChar c : clicks) {
            if (c == QLatin1Char('S'))
                a.controller.mnuRealTimeGraphOn_Click();
            else
                a.controller.mnuAutoCompressed_Click();
        }
        QCOMPARE(a.main.mnuRealTimeGraphOn.checked(), strip);
        QCOMPARE(a.main.mnuAutoCompressed.checked(), compressed);
    }

    void readingsNeedAPlottingMode()
    {
        AppRig rig;
        Application& a = rig.app();
        a.main.mnuRealTimeGraphOn.setChecked(false);
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.feed("  80\x07");
        QCOMPARE(a.main.lblCurrentTemp.caption(), QString());
        QCOMPARE(rig.chart.pointCount(1), 1);
        a.controller.mnuAutoCompressed_Click();
        rig.feed("  81\x07");
        QCOMPARE(a.main.lblCurrentTemp.caption(), QStringLiteral("81"));
    }

    void commandLine_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("demo");
        QTest::addColumn<bool>("splash");
        QTest::addColumn<QString>("port");
        QTest::addColumn<bool>("error");
        QTest::newRow("nothing") << QStringList { "talavex" } << false << true << "" << false;
        QTest::newRow("demo without splash")
            << QStringList { "talavex", "--demo", "--no-splash" } << true << false << "" << false;
        QTest::newRow("port") << QStringList { "talavex", "--port", "/dev/ttyUSB0" } << false
                              << true << "/dev/ttyUSB0" << false;
        QTest::newRow("port with equals") << QStringList { "talavex", "--port=/dev/pts/3" } << false
                                          << true << "/dev/pts/3" << false;
        QTest::newRow("port without device")
            << QStringList { "talavex", "--port" } << false << true << "" << true;
        QTest::newRow("unknown option")
            << QStringList { "talavex", "--fast" } << false << true << "" << true;
    }
    void commandLine()
    {
        QFETCH(QStringList, arguments);
        QFETCH(bool, demo);
        QFETCH(bool, splash);
        QFETCH(QString, port);
        QFETCH(bool, error);
        const CommandLine line = CommandLine::parse(arguments);
        QCOMPARE(!line.error.isEmpty(), error);
        if (error)
            return;
        QCOMPARE(line.demo, demo);
        QCOMPARE(line.splash, splash);
        QCOMPARE(line.portDevice, port);
    }
};
TALAVEX_TEST(TestMainController)
#include "TestMainController.moc"

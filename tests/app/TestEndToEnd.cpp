#include "support/FakeBeeper.h"
#include "support/FakeClock.h"
#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/FakeSystemInfo.h"
#include "support/RecordingHost.h"
#include "support/TestRegistry.h"

#include "app/Application.h"
#include "base/StringUtils.h"
#include "chart/InMemoryChartSurface.h"
#include "link/PortMap.h"
#include "link/sim/SimulatedInstrument.h"
#include "ui/QtSerialPort.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

// The simulated instrument on a pseudo-terminal, the real serial adapter and the real
// controllers: bytes on a line in, labels, chart, store and files out.
class EndToEndRig {
public:
    EndToEndRig()
        : port(portMap)
    {
        app = std::make_unique<Application>(
            Platform { prompter, clock, beeper, launcher, systemInfo, port, chart, portMap });
        app->state.ProgramDirectory = dir.path();
        app->main.mnuRealTimeGraphOn.setChecked(true);
        app->state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        app->state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        host.onShowStoredPoints = [this] { app->storedPoints.Form_Load(); };
        host.onUnloadStoredPoints = [this] { app->storedPoints.Form_Unload(); };
        app->setWindowHost(&host);
        app->controller.mnuClearChart_Click();

        QString error;
        if (!instrument.open(&error))
            qFatal("no pseudo-terminal: %s", qPrintable(error));
        portMap.setRunOverride(1, instrument.devicePath());
        instrument.setCharactersPerSecond(20000);
        instrument.setTimeScale(0.02);
        QObject::connect(&instrument, &SimulatedInstrument::recordSent,
            [this](int, const QByteArray& record) { sent << record; });
        QObject::connect(
            app.get(), &Application::portOpened, [this](bool) { instrument.start(options); });
    }

    QByteArray lastObtained() const
    {
        QFile file(dir.filePath(QStringLiteral("LAST_OBTAINED_DATA_PTS.dat")));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // What LAST_OBTAINED_DATA_PTS.dat holds after its heading for the records sent: the
    // parameter block's lines, its reading, then each reading, spaces turned into tabs.
    QByteArray expectedReadings() const
    {
        QByteArray expected;
        const QByteArray block = sent.front();
        const QList<QByteArray> blockLines = block.left(block.size() - 1).split('\n');
        for (const QByteArray& line : blockLines.mid(0, 9))
            expected += '\t' + line + "\r\n";
        expected += "\t\r\n" + blockLines.at(10) + "\r\n";
        for (const QByteArray& record : sent.mid(1)) {
            QString line = QString::fromLatin1(record.left(record.size() - 1));
            expected += StringUtils::SpacesToTabs(line).toLatin1() + "\r\n";
        }
        return expected;
    }

    QTemporaryDir dir;
    FakePrompter prompter;
    FakeClock clock;
    FakeBeeper beeper;
    FakeLauncher launcher;
    FakeSystemInfo systemInfo;
    PortMap portMap;
    QtSerialPort port;
    InMemoryChartSurface chart;
    RecordingHost host;
    SimulatedInstrument instrument;
    SimulatorOptions options;
    QList<QByteArray> sent;
    std::unique_ptr<Application> app;
};

class TestEndToEnd : public QObject {
    Q_OBJECT
private slots:
    void realTimeRun()
    {
        EndToEndRig rig;
        rig.options.intervalSeconds = 1;
        Application& a = *rig.app;
        a.acquisition.mnuSenseTemperature_Click();
        QVERIFY(rig.port.isOpen());
        // A file chooser, then an information box, each open for ten seconds: the readings go on
        // being shown, plotted and logged, and the watchdog sees them.
        rig.prompter.onShow = [&](const Prompter::Message&) {
            for (int second = 0; second < 10; ++second) {
                rig.clock.advance(1);
                const int plotted = rig.chart.pointCount(1);
                QTRY_VERIFY_WITH_TIMEOUT(rig.chart.pointCount(1) > plotted, 5000);
                a.acquisition.tmrCheckTransmission_Timer();
            }
        };
        a.chartExport.mnuExportChart_Click();
        a.demo.mnuSearchForIR_Click();
        rig.prompter.onShow = nullptr;
        QTRY_VERIFY_WITH_TIMEOUT(rig.chart.pointCount(1) > 30, 20000);
        // The readout shows the last reading in the colour its limits give.
        const int last = a.main.lblCurrentTemp.caption().toInt();
        const qint64 colour = last > 85 ? Colors::Red : last < 25 ? Colors::Yellow : Colors::Green;
        QCOMPARE(a.main.lblCurrentTemp.foreColor(), colour);
        QCOMPARE(rig.chart.y(1, rig.chart.pointCount(1) - 1), double(last));
        a.acquisition.mnuStop_Click();

        const QStringList labels { "DEG F", "1", "0.95", "85", "25" };
        for (int i = 0; i < labels.size(); ++i)
            QCOMPARE(a.main.lblSystParameters(i + 1).caption(), labels.at(i));
        // No halt: the summary box, then Stop's offer to save the plot (its save dialog cancelled).
        QCOMPARE(rig.prompter.titles(),
            (QStringList { DemoController::summaryTitle(), "SAVE PLOTTED DATA TO FILE?" }));

        // Every reading of the run is in the file, in order, as the program logs it.
        const QByteArray file = rig.lastObtained();
        QVERIFY(file.startsWith(
            "\tBRANDOK ENGINEERING Infrared Thermometer Data Logging\r\n\tDate: (mm/dd/yy) "));
        const QByteArray expected = rig.expectedReadings();
        QCOMPARE(file.mid(file.indexOf(expected.left(20))), expected);
        // Every reading is on the chart too, one interval apart.
        QCOMPARE(rig.chart.pointCount(1) - 1, rig.sent.size());
        QCOMPARE(rig.chart.x(1, 2) - rig.chart.x(1, 1), 1.0);
    }

    void downloadFillsTheStore()
    {
        EndToEndRig rig;
        rig.options.mode = SimulatorOptions::Mode::Download;
        rig.options.storedCount = 25;
        rig.options.emptyLocations = 3;
        Application& a = *rig.app;
        a.acquisition.mnuDownloadData_Click();
        a.storedPoints.cmdStartDownload_Click();
        QTRY_COMPARE_WITH_TIMEOUT(
            a.store.text().count(QStringLiteral("EMPTY LOCATION - NO DATA.")), 3, 20000);
        QCOMPARE(a.store.text().count(QLatin1Char('#')), 25);
        QVERIFY(a.store.text().contains(QStringLiteral("\t#001\t")));
        QCOMPARE(a.storedPointsModel.lblAcquiredPoints.caption(), QStringLiteral("RECEIVING..."));
        QCOMPARE(a.storedPointsModel.lblReceivedCounts.caption(),
            QStringLiteral("25 READINGS, 3 EMPTY LOCATIONS"));
        QVERIFY(rig.prompter.titles().isEmpty());
        a.storedPoints.cmdStartDownload_Click();
        QVERIFY(!rig.port.isOpen());
        QVERIFY(a.storedPointsModel.cmdSaveToTxtFile.enabled());
    }

    void silenceHaltsLogging()
    {
        EndToEndRig rig;
        rig.options.intervalSeconds = 1;
        rig.options.fault = SimulatorOptions::Fault::Silence;
        rig.options.faultAfter = 3;
        Application& a = *rig.app;
        bool silent = false;
        QObject::connect(&rig.instrument, &SimulatedInstrument::finished, [&] { silent = true; });
        a.acquisition.mnuSenseTemperature_Click();
        // The instrument falls silent while a file chooser is open: the halt is told over it.
        rig.prompter.onShow = [&](const Prompter::Message& box) {
            if (box.title != ChartExport::dialogTitle())
                return;
            QTRY_VERIFY_WITH_TIMEOUT(
                silent && rig.chart.pointCount(1) - 1 == rig.sent.size(), 15000);
            rig.clock.advance(4);
            QTRY_VERIFY_WITH_TIMEOUT(!rig.prompter.titles().isEmpty(), 15000);
        };
        a.chartExport.mnuExportChart_Click();
        // The halt, then Stop's offer to save the readings already plotted.
        QCOMPARE(rig.prompter.titles(),
            (QStringList {
                "IR SYSTEM HAS HALTED DATA TRANSMISSION", "SAVE PLOTTED DATA TO FILE?" }));
        QVERIFY(!a.main.mnuSenseTemperature.checked());
        QVERIFY(!rig.port.isOpen());
        QVERIFY(a.acquisition.TransmissionLost);
        // Each reading is logged once, and the chooser then cancels cleanly: no file, no box.
        const QByteArray file = rig.lastObtained();
        const QByteArray expected = rig.expectedReadings();
        QCOMPARE(file.mid(file.indexOf(expected.left(20))), expected);
        QCOMPARE(QDir(rig.dir.path()).entryList({ "*.png", "*.pdf", "*.svg" }), QStringList());
        QCOMPARE(rig.prompter.titles().size(), 2);
    }

    // Random bytes invent no reading and load no block. With this seed two bursts holding a
    // vertical tab come before the first holding a "#", which halts.
    void noiseAddsNothing()
    {
        EndToEndRig rig;
        rig.options.intervalSeconds = 1;
        rig.options.fault = SimulatorOptions::Fault::Noise;
        rig.options.faultAfter = 1;
        rig.options.seed = 5;
        Application& a = *rig.app;
        a.acquisition.mnuSenseTemperature_Click();
        QTRY_VERIFY_WITH_TIMEOUT(!rig.prompter.titles().isEmpty(), 15000);
        QCOMPARE(rig.prompter.titles().front(),
            QStringLiteral("RECEIVED STORED DATA WHILE IN REAL TIME MODE"));
        QCOMPARE(rig.lastObtained().count(rig.sent.front().split('\n').at(10)), 1);
        QCOMPARE(rig.chart.pointCount(1) - 1, 1);
        QCOMPARE(a.main.lblSystParameters(2).caption(), QStringLiteral("1"));
    }

    void wrongModeHalts()
    {
        EndToEndRig rig;
        rig.options.intervalSeconds = 1;
        rig.options.fault = SimulatorOptions::Fault::WrongMode;
        rig.options.faultAfter = 4;
        Application& a = *rig.app;
        a.acquisition.mnuSenseTemperature_Click();
        QTRY_VERIFY_WITH_TIMEOUT(!rig.prompter.titles().isEmpty(), 15000);
        QCOMPARE(rig.prompter.titles(),
            (QStringList {
                "RECEIVED STORED DATA WHILE IN REAL TIME MODE", "SAVE PLOTTED DATA TO FILE?" }));
        QVERIFY(!rig.port.isOpen());
        QVERIFY(!a.main.mnuSenseTemperature.checked());
    }
};
TALAVEX_TEST(TestEndToEnd)
#include "TestEndToEnd.moc"

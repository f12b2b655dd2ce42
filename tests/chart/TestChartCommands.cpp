#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "base/Numbers.h"
#include "chart/ChartPanel.h"
#include "chart/PlotFile.h"

#include <QTest>

namespace {
using Axis = ChartSurface::Axis;
using Answer = Prompter::Answer;

class RecordingPanel : public ChartPanel {
public:
    void UpdatePanelWithCurrentChartSettings() override { ++updates; }
    void SetDisplayLimitsChecked(bool checked) override { limits << checked; }
    int updates = 0;
    QList<bool> limits;
};

void plotReadings(Application& a, const QList<int>& readings, const char* interval = "2")
{
    a.state.Instrument.units = QStringLiteral("DEG F");
    a.state.Instrument.interval = SamplingInterval(QString::fromLatin1(interval));
    for (int r : readings) {
        a.state.TimeInterval = float(Numbers::Val(QString::fromLatin1(interval)));
        qint16 reading = qint16(r);
        a.chart.AddReadingToChart(reading);
    }
}

QList<double> limits(const ChartSurface& chart)
{
    return { chart.axisMin(Axis::X), chart.axisMax(Axis::X), chart.axisMin(Axis::Y),
        chart.axisMax(Axis::Y) };
}
} // namespace

class TestChartCommands : public QObject {
    Q_OBJECT
private slots:
    void showAllWithoutData()
    {
        AppRig rig;
        Application& a = rig.app();
        const QList<double> before = limits(rig.chart);
        a.chartCommands.mnuShowAllPts_Click();
        QCOMPARE(rig.prompter.messages().size(), std::size_t(1));
        QCOMPARE(rig.prompter.messages()[0].text, QStringLiteral("YOU HAVE NO DATA TO CHART"));
        QCOMPARE(rig.prompter.messages()[0].buttons, Prompter::Buttons::Ok);
        QCOMPARE(limits(rig.chart), before);
        QVERIFY(!a.main.cmdResetChart.visible());
    }

    void showAllThenResetChart()
    {
        AppRig rig;
        Application& a = rig.app();
        a.main.mnuRealTimeGraphOn.setChecked(false);
        plotReadings(a, { 100, 150, 120, 90 });
        const QList<double> before = limits(rig.chart);
        int busy = 0;
        a.chartCommands.setBusyIndicator([&busy](bool on) { busy += on ? 1 : -1; });
        a.chartCommands.mnuShowAllPts_Click();
        QCOMPARE(limits(rig.chart)[1], 6.0);
        QVERIFY(a.main.cmdResetChart.visible());
        a.chartCommands.cmdResetChart_Click();
        QCOMPARE(limits(rig.chart), before);
        QVERIFY(!a.main.cmdResetChart.visible());
        QCOMPARE(rig.chart.pointCount(1), 5);
        QCOMPARE(busy, 0);
    }

    void resetChartOnAnEmptyChartClears()
    {
        AppRig rig;
        Application& a = rig.app();
        a.state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        rig.chart.setAxisMin(Axis::X, 10);
        rig.chart.setAxisMax(Axis::X, 110);
        a.main.cmdResetChart.setVisible(true);
        a.chartCommands.cmdResetChart_Click();
        QVERIFY(!a.main.cmdResetChart.visible());
        QCOMPARE(rig.chart.pointCount(1), 1);
        QCOMPARE(rig.chart.x(2, 1), 8.0);
        QCOMPARE(rig.chart.y(2, 1), 85.0);
    }

    void displayLimitMarkers_data()
    {
        QTest::addColumn<int>("clicks");
        QTest::addColumn<bool>("panelOpen");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<QString>("entry");
        QTest::newRow("once") << 1 << false << true << "1";
        QTest::newRow("twice") << 2 << false << false << "0";
        QTest::newRow("once, panel open") << 1 << true << true << "1";
        QTest::newRow("twice, panel open") << 2 << true << false << "0";
    }
    void displayLimitMarkers()
    {
        QFETCH(int, clicks);
        QFETCH(bool, panelOpen);
        QFETCH(bool, shown);
        QFETCH(QString, entry);
        AppRig rig;
        Application& a = rig.app();
        RecordingPanel panel;
        a.chart.setPanel(&panel);
        a.state.GraphSettingsOpen = panelOpen;
        for (int i = 0; i < clicks; ++i)
            a.chartCommands.mnuDispLimits_Click();
        QCOMPARE(a.main.mnuDispLimits.checked(), shown);
        QCOMPARE(rig.chart.seriesVisible(2), shown);
        QCOMPARE(rig.chart.seriesVisible(3), shown);
        QCOMPARE(a.state.SettingsValues.limitLinesShown.text, entry);
        QCOMPARE(panel.limits.size(), panelOpen ? clicks : 0);
        if (panelOpen)
            QCOMPARE(panel.limits.last(), shown);
    }

    void mouseInteraction_data()
    {
        QTest::addColumn<QList<double>>("after"); // the limits the gesture leaves
        QTest::addColumn<bool>("resetShown");
        QTest::newRow("unchanged release") << QList<double> {} << false;
        QTest::newRow("zoomed X min") << QList<double> { 5, 60, 0, 100 } << true;
        QTest::newRow("zoomed X max") << QList<double> { 0, 50, 0, 100 } << true;
        QTest::newRow("moved Y") << QList<double> { 0, 60, -10, 90 } << true;
        QTest::newRow("zoomed Y max only") << QList<double> { 0, 60, 0, 99.5 } << true;
    }
    void mouseInteraction()
    {
        QFETCH(QList<double>, after);
        QFETCH(bool, resetShown);
        AppRig rig;
        Application& a = rig.app();
        RecordingPanel panel;
        a.chart.setPanel(&panel);
        a.state.GraphSettingsOpen = true;
        plotReadings(a, { 50, 60 });
        rig.chart.setAxisMin(Axis::X, 0);
        rig.chart.setAxisMax(Axis::X, 60);
        rig.chart.setAxisMin(Axis::Y, 0);
        rig.chart.setAxisMax(Axis::Y, 100);
        panel.updates = 0;
        a.chartCommands.TempChart_InteractionStart();
        if (!after.isEmpty()) {
            rig.chart.setAxisMin(Axis::X, after[0]);
            rig.chart.setAxisMax(Axis::X, after[1]);
            rig.chart.setAxisMin(Axis::Y, after[2]);
            rig.chart.setAxisMax(Axis::Y, after[3]);
        }
        QCOMPARE(a.chartCommands.AxisLimitsChanged(), resetShown);
        a.chartCommands.TempChart_InteractionEnd();
        QCOMPARE(a.main.cmdResetChart.visible(), resetShown);
        QCOMPARE(panel.updates, resetShown ? 1 : 0);
    }

    // Two zooms in a row: RESET CHART goes back to the view before the first.
    void resetChartRestoresTheFirstView()
    {
        AppRig rig;
        Application& a = rig.app();
        plotReadings(a, { 50, 60, 70 });
        const QList<double> original = limits(rig.chart);
        for (double max : { 40.0, 20.0 }) {
            a.chartCommands.TempChart_InteractionStart();
            rig.chart.setAxisMax(Axis::X, max);
            a.chartCommands.TempChart_InteractionEnd();
        }
        QCOMPARE(rig.chart.axisMax(Axis::X), 20.0);
        a.chartCommands.cmdResetChart_Click();
        QCOMPARE(limits(rig.chart), original);
    }

    void plotRoundTrip()
    {
        AppRig rig;
        Application& a = rig.app();
        a.graphSettings.comTimeUnits_Click(1);
        rig.chart.setAxisTitle(Axis::Y, QStringLiteral("DEGREES F"));
        plotReadings(a, { 100, -20, 32767, -32768, 0, 71 }, "7");
        rig.chart.setAxisMin(Axis::Y, -12.5);
        const PlotData saved = a.chartCommands.TakePlot();
        QCOMPARE(saved.x.size(), std::size_t(6));
        QCOMPARE(saved.x[1], double(7.0f / 60));

        const QString path = rig.dir.filePath(QStringLiteral("run"));
        rig.prompter.files.push_back(path);
        a.chartCommands.mnuSavePlotToFile_Click();
        QVERIFY(a.state.PlotSaved);
        QFile file(path + QStringLiteral(".rec"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QVERIFY(text.endsWith("END\r\n\r\nMINUTES\r\n\r\nDEGREES F\r\nDEG F\r\n7\r\n"));
        QCOMPARE(text.count("\r\n"), text.count('\n'));

        a.controller.mnuClearChart_Click();
        a.state.PlotSaved = false;
        a.graphSettings.comTimeUnits_Click(0);
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.prompter.files.push_back(file.fileName());
        a.chartCommands.mnuLoadPlotFile_Click();
        QVERIFY(rig.prompter.messages().empty());
        QVERIFY(a.chartCommands.TakePlot() == saved);
        QCOMPARE(a.main.lblSystParameters(2).caption(), QStringLiteral("7"));
        QCOMPARE(rig.chart.pointCount(1), 7);
        QCOMPARE(a.state.TimeUnitIndex, qint16(1));
        QCOMPARE(a.state.SettingsValues.timeUnit.text, QStringLiteral("1"));
        QVERIFY(a.state.PlotSaved);
        const auto& open = rig.prompter.shown.back();
        QCOMPARE(open.kind, QStringLiteral("open"));
        QCOMPARE(open.choice.filter, QStringLiteral("*.rec"));
    }

    void damagedFileLeavesTheChart_data()
    {
        QTest::addColumn<QByteArray>("text");
        const QByteArray good = "TALAVEX PLOT 1\r\nTIMEUNIT 0\r\nXAXIS 0 60\r\nYAXIS 0 100\r\n"
                                "POINTS 2\r\n0 50\r\n1 51\r\nEND\r\n\r\nSECONDS\r\n\r\nTEMP\r\n"
                                "DEG F\r\n1\r\n";
        auto broken = [&good](const char* from, const char* to) {
            return QByteArray(good).replace(from, to);
        };
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("a settings file") << QByteArray("100\r\n0\r\n60\r\n0\r\n");
        QTest::newRow("more points than lines") << broken("POINTS 2", "POINTS 200");
        QTest::newRow("fewer points than lines") << broken("POINTS 2", "POINTS 1");
        QTest::newRow("negative count") << broken("POINTS 2", "POINTS -1");
        QTest::newRow("not a number") << broken("1 51", "1 5x1");
        QTest::newRow("one value") << broken("1 51", "151");
        QTest::newRow("infinite") << broken("1 51", "1 inf");
        QTest::newRow("axis missing") << broken("YAXIS 0 100", "YAXIS 0");
        QTest::newRow("unit fraction") << broken("TIMEUNIT 0", "TIMEUNIT 0.5");
        QTest::newRow("no END") << broken("END\r\n", "");
        QTest::newRow("trailer shifted") << broken("END\r\n\r\n", "END\r\nX\r\n");
        QTest::newRow("cut short") << good.left(60);
    }
    void damagedFileLeavesTheChart()
    {
        QFETCH(QByteArray, text);
        AppRig rig;
        Application& a = rig.app();
        plotReadings(a, { 80, 81, 82 });
        const PlotData before = a.chartCommands.TakePlot();
        const QString path = rig.dir.filePath(QStringLiteral("bad.rec"));
        testfiles::writeAll(path, text);
        QVERIFY(!a.chartCommands.LoadPlot(path));
        QVERIFY(a.chartCommands.TakePlot() == before);
        QCOMPARE(rig.prompter.titles(), QStringList { QStringLiteral("UNABLE TO LOAD PLOT FILE") });
        QVERIFY(rig.prompter.messages()[0].text.contains(path));
        QVERIFY(!a.state.PlotSaved);
    }

    void goodFileParses()
    {
        PlotData plot;
        QVERIFY(PlotFile::Parse("TALAVEX PLOT 1\nTIMEUNIT 2\nXAXIS -1 1e3\nYAXIS 0.5 100\n"
                                "POINTS 1\n0.25 -7\nEND\n\nHOURS\n",
            &plot));
        QCOMPARE(plot.timeUnit, qint16(2));
        QCOMPARE(plot.xMax, 1000.0);
        QCOMPARE(plot.y, std::vector<double> { -7.0 });
        QCOMPARE(plot.xTitle, QStringLiteral("HOURS"));
        QVERIFY(plot.intervalCaption.isEmpty());
    }

    // Stop with an unsaved plot: the question, then the save dialog, then the overwrite check.
    void stopOffersToSave_data()
    {
        QTest::addColumn<QList<int>>("answers"); // Prompter::Answer values, in order
        QTest::addColumn<bool>("chooseFile");
        QTest::addColumn<bool>("fileExists");
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<bool>("saved");
        const QString ask = QStringLiteral("SAVE PLOTTED DATA TO FILE?");
        const QString dup = QStringLiteral("DUPLICATE FILE FOUND");
        QTest::newRow("no") << QList<int> { int(Answer::No) } << false << false
                            << QStringList { ask } << false;
        QTest::newRow("yes, cancelled dialog")
            << QList<int> { int(Answer::Yes) } << false << false << QStringList { ask } << false;
        QTest::newRow("yes, new file")
            << QList<int> { int(Answer::Yes) } << true << false << QStringList { ask } << true;
        QTest::newRow("yes, existing file, keep it")
            << QList<int> { int(Answer::Yes), int(Answer::No) } << true << true
            << QStringList { ask, dup } << false;
        QTest::newRow("yes, existing file, overwrite")
            << QList<int> { int(Answer::Yes), int(Answer::Yes) } << true << true
            << QStringList { ask, dup } << true;
    }
    void stopOffersToSave()
    {
        QFETCH(QList<int>, answers);
        QFETCH(bool, chooseFile);
        QFETCH(bool, fileExists);
        QFETCH(QStringList, titles);
        QFETCH(bool, saved);
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.feed("  80\x07  81\x07");
        const QString path = rig.dir.filePath(QStringLiteral("plot.rec"));
        if (fileExists)
            testfiles::writeAll(path, "old");
        for (int answer : answers)
            rig.prompter.answers.push_back(Answer(answer));
        if (chooseFile)
            rig.prompter.files.push_back(path);
        a.acquisition.mnuStop_Click();

        QCOMPARE(rig.prompter.titles(), titles);
        QCOMPARE(rig.prompter.messages()[0].text,
            QStringLiteral("DO YOU WISH TO SAVE THIS PLOT DATA TO A FILE?"));
        QCOMPARE(rig.prompter.messages()[0].buttons, Prompter::Buttons::YesNo);
        if (titles.size() > 1) {
            QCOMPARE(rig.prompter.messages()[1].text,
                QStringLiteral("THIS ALREADY EXISTS, DO YOU WISH TO OVERWRITE THE DATA?"));
        }
        const bool dialogShown = answers.first() == int(Answer::Yes);
        int dialogs = 0;
        for (const auto& s : rig.prompter.shown) {
            if (s.kind == QLatin1String("save")) {
                ++dialogs;
                QCOMPARE(s.choice.title, QStringLiteral("SAVE PLOT DATA TO FILE"));
                QCOMPARE(s.choice.filter, QStringLiteral("*.rec"));
                QCOMPARE(s.choice.defaultExtension, QStringLiteral("rec"));
                QCOMPARE(s.choice.directory, a.state.ProgramDirectory);
            }
        }
        QCOMPARE(dialogs, dialogShown ? 1 : 0);
        QCOMPARE(a.state.PlotSaved, saved);
        PlotData plot;
        QCOMPARE(PlotFile::Read(path, &plot), saved);
        if (saved)
            QCOMPARE(plot.y, (std::vector<double> { 80, 81 }));

        // Once saved, a second stop asks nothing.
        rig.prompter.clear();
        a.acquisition.mnuStop_Click();
        QCOMPARE(rig.prompter.titles().isEmpty(), saved);
    }
};
TALAVEX_TEST(TestChartCommands)
#include "TestChartCommands.moc"

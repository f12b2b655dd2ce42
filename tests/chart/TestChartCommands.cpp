#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "base/Numbers.h"
#include "chart/ChartPanel.h"
#include "chart/GraphSettingsModel.h"
#include "chart/PlotFile.h"

#include <QTest>
#include <functional>
#include <map>

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

    // The chart keeps the data in view. A row is a script of steps on the application:
    // "i=200" the interval, "S" and "C" the strip chart and compressed menu items, "lim" DISPLAY
    // LIMIT MARKERS, "run" SEND DATA IN REALTIME, "stop", "f300" readings, "x=a,b" the X range as
    // the settings leave it,
    // "zoom=a,b" a mouse zoom, "all" SHOW ALL POINTS, "reset" RESET CHART, "load" the plot
    // taken and put back, "clear" CLEAR CHART, ">" and "<" the panel's X scroll, "max=v" typed
    // with Enter, "up" the maximum's up arrow, "accept=a,b" the X range accepted. Checks: "=a,b"
    // the X range on show, "held" or "live" the VIEW HELD notice, "!" notices since the last,
    // each the live path's, "#n" readings plotted. After every step and reading the limit lines
    // span the X range, shown as DISPLAY LIMIT MARKERS says, the panel shows that range, and in
    // compressed mode a live view starts at 0 and holds the newest reading.
    void viewKeepsTheData_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("compressed, 3,000 readings") << "C run f3000 =0,3840";
        QTest::newRow("compressed after paging") << "run f130 =120,180 C f1 =0,180";
        QTest::newRow("limit lines")
            << "lim run f200 > < stop all reset zoom=-30,30 reset load clear";
        QTest::newRow("a new run starts at 0")
            << "x=120,360 run =0,240 f300 stop run =0,240 stop x=50,50 run =0,100";
        QTest::newRow("zoom held during a run")
            << "run f30 zoom=10,20 held f200 =10,20 reset live =180,240";
        QTest::newRow("held while compressing") << "C run f30 zoom=10,20 f100 =10,20 reset =0,240";
        QTest::newRow("idle zooms: reset shows the first view")
            << "f3 zoom=0,40 zoom=0,20 reset =0,60";
        QTest::newRow("show all with one reading") << "x=10,70 f1 all =0,60";
        QTest::newRow("window overflow on every path")
            << "S i=200 x=0,100000 f305 ! #305 max=90000 =0,90000 ! up =0,108000 ! "
               "accept=0,70000 =0,70000 !";
    }
    void viewKeepsTheData()
    {
        QFETCH(QString, script);
        AppRig rig;
        Application& a = rig.app();
        ChartCommands& c = a.chartCommands;
        GraphSettingsController& panel = a.graphSettings;
        GraphSettingsModel& boxes = a.graphSettingsModel;
        Control* viewHeld = a.main.control(QStringLiteral("lblViewHeld"));
        QStringList notices;
        int noticesSeen = 0;
        a.chart.setOverflowNotice([&notices](const QString& what) { notices << what; });
        panel.Form_Load();
        a.main.lblSystParameters(2).setCaption(QStringLiteral("1"));
        const std::map<QString, std::function<void()>> commands {
            { "S", [&] { a.controller.mnuRealTimeGraphOn_Click(); } },
            { "C", [&] { a.controller.mnuAutoCompressed_Click(); } },
            { "lim", [&] { c.mnuDispLimits_Click(); } },
            { "run", [&] { rig.startSensing(); } },
            { "stop", [&] { a.acquisition.mnuStop_Click(); } },
            { "all", [&] { c.mnuShowAllPts_Click(); } },
            { "reset", [&] { c.cmdResetChart_Click(); } },
            { "load", [&] { c.RestorePlot(c.TakePlot()); } },
            { "clear", [&] { a.controller.mnuClearChart_Click(); } },
            { ">", [&] { panel.XDomainScroll_UpClick(); } },
            { "<", [&] { panel.XDomainScroll_DownClick(); } },
            { "up", [&] { panel.XMaxIncrement_UpClick(); } },
        };
        auto box = [](double v) { return Numbers::Format(v, QStringLiteral("0.##")); };
        auto check = [&] {
            const double lo = std::min(rig.chart.axisMin(Axis::X), rig.chart.axisMax(Axis::X));
            const double hi = std::max(rig.chart.axisMin(Axis::X), rig.chart.axisMax(Axis::X));
            for (int series : { 2, 3 }) {
                QVERIFY(rig.chart.x(series, 1) <= lo && rig.chart.x(series, 2) >= hi);
                QCOMPARE(rig.chart.seriesVisible(series), a.main.mnuDispLimits.checked());
            }
            QCOMPARE(boxes.txtMinX.caption(), box(rig.chart.axisMin(Axis::X)));
            QCOMPARE(boxes.txtMaxX.caption(), box(rig.chart.axisMax(Axis::X)));
        };
        for (const QString& step : script.split(QLatin1Char(' '))) {
            const QStringList v = step.section(QLatin1Char('='), 1).split(QLatin1Char(','));
            const QString op = step.section(QLatin1Char('='), 0, 0);
            const auto command = commands.find(op);
            if (command != commands.end()) {
                command->second();
            } else if (op.startsWith(QLatin1Char('f'))) {
                for (int i = op.mid(1).toInt(); i > 0; --i) {
                    plotReadings(a, { 70 }, qPrintable(a.main.lblSystParameters(2).caption()));
                    if (a.main.mnuAutoCompressed.checked() && !a.main.cmdResetChart.visible()) {
                        QCOMPARE(rig.chart.axisMin(Axis::X), 0.0);
                        QVERIFY(rig.chart.x(1, rig.chart.pointCount(1) - 1)
                            <= rig.chart.axisMax(Axis::X));
                    }
                    check();
                    if (QTest::currentTestFailed())
                        return;
                }
            } else if (op == QLatin1String("i")) {
                a.main.lblSystParameters(2).setCaption(v[0]);
            } else if (op == QLatin1String("x") || op == QLatin1String("zoom")) {
                if (op == QLatin1String("zoom"))
                    c.TempChart_InteractionStart();
                rig.chart.setAxisMin(Axis::X, v[0].toDouble());
                rig.chart.setAxisMax(Axis::X, v[1].toDouble());
                if (op == QLatin1String("zoom")) {
                    c.TempChart_InteractionEnd();
                } else {
                    a.controller.mnuIniChart_Click();
                    panel.UpdatePanelWithCurrentChartSettings();
                }
            } else if (op == QLatin1String("max")) {
                boxes.txtMaxX.setCaption(v[0]);
                panel.txtMaxX_KeyPress(GraphSettingsController::KeyEnter);
            } else if (op == QLatin1String("accept")) {
                boxes.txtMinX.setCaption(v[0]);
                boxes.txtMaxX.setCaption(v[1]);
                panel.cmdAccept_Click();
            } else if (op.isEmpty()) {
                QCOMPARE(rig.chart.axisMin(Axis::X), v[0].toDouble());
                QCOMPARE(rig.chart.axisMax(Axis::X), v[1].toDouble());
            } else if (op == QLatin1String("held") || op == QLatin1String("live")) {
                QVERIFY(viewHeld);
                QCOMPARE(viewHeld->visible(), op == QLatin1String("held"));
            } else if (op == QLatin1String("!")) {
                QVERIFY(notices.size() > noticesSeen);
                QCOMPARE(notices.count(notices.first()), notices.size());
                noticesSeen = int(notices.size());
            } else if (op.startsWith(QLatin1Char('#'))) {
                QCOMPARE(rig.chart.pointCount(1), op.mid(1).toInt() + 1);
            } else {
                QFAIL(qPrintable(step));
            }
            check();
            if (QTest::currentTestFailed())
                return;
        }
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

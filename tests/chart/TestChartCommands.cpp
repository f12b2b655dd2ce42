#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "Rows.h"

#include "base/Numbers.h"
#include "chart/GraphSettingsModel.h"
#include "chart/PlotFile.h"

#include <QTest>
#include <functional>
#include <map>

namespace {
using Axis = ChartSurface::Axis;
using Answer = Prompter::Answer;

void plotReadings(Application& a, const QList<int>& readings, const QString& interval)
{
    a.state.Instrument.units = QStringLiteral("DEG F");
    a.state.Instrument.interval = SamplingInterval(interval);
    for (int r : readings) {
        a.state.TimeInterval = float(Numbers::Val(interval));
        a.chart.AddReadingToChart(qint16(r));
    }
}
} // namespace

class TestChartCommands : public QObject {
    Q_OBJECT
private slots:
    // The chart keeps the data in view. A row is a script of steps on the application:
    // "i=200" the interval, "S" and "C" the strip chart and compressed menu items, "lim" DISPLAY
    // LIMIT MARKERS, "run" SEND DATA IN REALTIME, "stop", "f300" readings, "x=a,b" the X range as
    // the settings leave it, "zoom=a,b" a mouse zoom (",c,d" the Y range too), "all" SHOW ALL
    // POINTS, "reset" RESET CHART, "load" the plot taken and put back, "clear" CLEAR CHART, ">" and
    // "<" the panel's X scroll, "max=v" typed with Enter, "up" the maximum's up arrow, "accept=a,b"
    // the X range accepted. Checks: "=a,b" the X range on show, "held" or "live" the VIEW HELD
    // notice, "!" notices since the last, each the live path's, "#n" readings plotted, "R+" or "R-"
    // RESET CHART shown or not, "?n" boxes shown. After every step and reading the limit lines span
    // the X range, shown as DISPLAY LIMIT MARKERS says (as are the panel's box and the settings
    // entry), the panel shows the ranges, no hourglass is left on, and in compressed mode a live
    // view starts at 0 and holds the newest reading.
    void viewKeepsTheData_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("compressed, 3,000 readings") << "C run f3000 =0,3840";
        QTest::newRow("compressed after paging") << "run f130 =120,180 C f1 =0,180";
        QTest::newRow("limit lines")
            << "lim run f200 > < stop all reset zoom=-30,30 reset load clear lim lim";
        QTest::newRow("a new run starts at 0")
            << "x=120,360 run =0,240 f300 stop run =0,240 stop x=50,50 run =0,100";
        QTest::newRow("zoom held during a run")
            << "run f30 zoom=10,20 held R+ f200 =10,20 reset live R- =180,240";
        QTest::newRow("held while compressing") << "C run f30 zoom=10,20 f100 =10,20 reset =0,240";
        QTest::newRow("idle zooms: reset shows the first view")
            << "f3 zoom=0,40 zoom=0,20 reset =0,60";
        QTest::newRow("show all, then reset") << "S i=2 f4 all =0,6 R+ reset =0,60 R- #4 ?0";
        QTest::newRow("show all with one reading") << "x=10,70 f1 all =0,60";
        QTest::newRow("show all without data") << "all ?1 =0,60 R-";
        QTest::newRow("gestures") << "run f2 zoom=0,60 live R- zoom=0,60,-10,90 held R+ reset R-";
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
        QVERIFY(viewHeld);
        QStringList notices;
        int noticesSeen = 0;
        int busy = 0;
        a.chart.setOverflowNotice([&notices](const QString& what) { notices << what; });
        c.setBusyIndicator([&busy](bool on) { busy += on ? 1 : -1; });
        panel.Form_Load();
        Control& interval = a.main.lblSystParameters(2);
        interval.setCaption(QStringLiteral("1"));
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
            const bool shown = a.main.mnuDispLimits.checked();
            for (int series : { 2, 3 }) {
                QVERIFY(rig.chart.x(series, 1) <= lo && rig.chart.x(series, 2) >= hi);
                QCOMPARE(rig.chart.seriesVisible(series), shown);
            }
            QCOMPARE(boxes.chkDispLimits.checked(), shown);
            QCOMPARE(a.state.SettingsValues.limitLinesShown.valueIsOne(), shown);
            QCOMPARE(boxes.txtMinX.caption(), box(rig.chart.axisMin(Axis::X)));
            QCOMPARE(boxes.txtMaxX.caption(), box(rig.chart.axisMax(Axis::X)));
            QCOMPARE(boxes.txtMinY.caption(), box(rig.chart.axisMin(Axis::Y)));
            QCOMPARE(boxes.txtMaxY.caption(), box(rig.chart.axisMax(Axis::Y)));
            QCOMPARE(busy, 0);
        };
        for (const QString& step : script.split(QLatin1Char(' '))) {
            const QStringList v = step.section(QLatin1Char('='), 1).split(QLatin1Char(','));
            const QString op = step.section(QLatin1Char('='), 0, 0);
            const auto command = commands.find(op);
            if (command != commands.end()) {
                command->second();
            } else if (op.startsWith(QLatin1Char('f'))) {
                for (int i = op.mid(1).toInt(); i > 0; --i) {
                    plotReadings(a, { 70 }, interval.caption());
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
                interval.setCaption(v[0]);
            } else if (op == QLatin1String("x") || op == QLatin1String("zoom")) {
                if (op == QLatin1String("zoom"))
                    c.TempChart_InteractionStart();
                rig.chart.setAxisMin(Axis::X, v[0].toDouble());
                rig.chart.setAxisMax(Axis::X, v[1].toDouble());
                if (v.size() == 4) {
                    rig.chart.setAxisMin(Axis::Y, v[2].toDouble());
                    rig.chart.setAxisMax(Axis::Y, v[3].toDouble());
                }
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
                QCOMPARE(viewHeld->visible(), op == QLatin1String("held"));
            } else if (op == QLatin1String("R+") || op == QLatin1String("R-")) {
                QCOMPARE(a.main.cmdResetChart.visible(), op == QLatin1String("R+"));
            } else if (op == QLatin1String("!")) {
                QVERIFY(notices.size() > noticesSeen);
                QCOMPARE(notices.count(notices.first()), notices.size());
                noticesSeen = int(notices.size());
            } else if (op.startsWith(QLatin1Char('#'))) {
                QCOMPARE(rig.chart.pointCount(1), op.mid(1).toInt() + 1);
            } else if (op.startsWith(QLatin1Char('?'))) {
                QCOMPARE(int(rig.prompter.messages().size()), op.mid(1).toInt());
            } else {
                QFAIL(qPrintable(step));
            }
            check();
            if (QTest::currentTestFailed())
                return;
        }
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
        QCOMPARE(rig.chart.drawnPoints(2), (std::vector<QPointF> { { 8, 85 }, { 132, 85 } }));
    }

    void plotRoundTrip()
    {
        AppRig rig;
        Application& a = rig.app();
        a.graphSettings.comTimeUnits_Click(1);
        rig.chart.setAxisTitle(Axis::Y, QStringLiteral("DEGREES F"));
        plotReadings(a, { 100, -20, 32767, -32768, 0, 71 }, QStringLiteral("7"));
        rig.chart.setAxisMin(Axis::Y, -12.5);
        const PlotData saved = a.chartCommands.TakePlot();
        QCOMPARE(saved.x.size(), std::size_t(6));
        QCOMPARE(saved.x[1], double(7.0f / 60));

        const QString path = rig.dir.filePath(QStringLiteral("run"));
        rig.prompter.files.push_back(path);
        a.chartCommands.mnuSavePlotToFile_Click();
        QVERIFY(a.state.PlotSaved);
        const QByteArray text = testfiles::readAll(path + QStringLiteral(".rec"));
        QVERIFY(text.endsWith("END\r\n\r\nMINUTES\r\n\r\nDEGREES F\r\nDEG F\r\n7\r\n"));
        QCOMPARE(text.count("\r\n"), text.count('\n'));

        a.controller.mnuClearChart_Click();
        a.state.PlotSaved = false;
        a.graphSettings.comTimeUnits_Click(0);
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.prompter.files.push_back(path + QStringLiteral(".rec"));
        a.chartCommands.mnuLoadPlotFile_Click();
        QVERIFY(rig.prompter.messages().empty());
        QVERIFY(a.chartCommands.TakePlot() == saved);
        QCOMPARE(a.main.lblSystParameters(2).caption(), QStringLiteral("7"));
        QCOMPARE(rig.chart.pointCount(1), 7);
        QCOMPARE(a.state.TimeUnitIndex, qint16(1));
        QCOMPARE(a.state.SettingsValues.timeUnit.text, QStringLiteral("1"));
        QVERIFY(a.state.PlotSaved);
    }

    // A good plot file damaged: "from => to" replaced ("\n" a line end), ":n" cut to n bytes.
    void damagedFileLeavesTheChart_data()
    {
        rows::add({ "empty file | :0", "cut short | :60", "another kind | TALAVEX PLOT 1 => 100",
            "more points than lines | POINTS 2 => POINTS 200",
            "fewer points than lines | POINTS 2 => POINTS 1",
            "negative count | POINTS 2 => POINTS -1", "fractional count | POINTS 2 => POINTS 1.5",
            "not a number | 1 51 => 1 5x1", "one value | 1 51 => 151", "infinite | 1 51 => 1 inf",
            "axis missing | YAXIS 0 100 => YAXIS 0", "unit fraction | TIMEUNIT 0 => TIMEUNIT 0.5",
            "unit beyond 16 bits | TIMEUNIT 0 => TIMEUNIT 32768", "no END | END => ENDS",
            "trailer shifted | END\\n\\n => END\\nX\\n" });
    }
    void damagedFileLeavesTheChart()
    {
        const QByteArray good = "TALAVEX PLOT 1\r\nTIMEUNIT 0\r\nXAXIS 0 60\r\nYAXIS 0 100\r\n"
                                "POINTS 2\r\n0 50\r\n1 51\r\nEND\r\n\r\nSECONDS\r\n\r\nTEMP\r\n"
                                "DEG F\r\n1\r\n";
        const QByteArray edit = rows::fields()[0].toUtf8().replace("\\n", "\r\n");
        const QList<QByteArray> fromTo = edit.split('>');
        const QByteArray text = edit.startsWith(':')
            ? good.left(edit.mid(1).toInt())
            : QByteArray(good).replace(fromTo[0].chopped(2), fromTo[1].mid(1));
        AppRig rig;
        Application& a = rig.app();
        plotReadings(a, { 80, 81, 82 }, QStringLiteral("2"));
        const PlotData before = a.chartCommands.TakePlot();
        const QString path = rig.dir.filePath(QStringLiteral("bad.rec"));
        testfiles::writeAll(path, text);
        QVERIFY(!a.chartCommands.LoadPlot(path));
        QVERIFY(a.chartCommands.TakePlot() == before);
        QCOMPARE(rig.prompter.titles(), QStringList { QStringLiteral("UNABLE TO LOAD PLOT FILE") });
        QVERIFY(rig.prompter.messages()[0].text.contains(path));
        QVERIFY(!a.state.PlotSaved);
    }

    // Bare LF line ends, exponents and a trailer cut after the Y title still make a plot.
    void goodFileParses()
    {
        PlotData plot;
        QVERIFY(PlotFile::Parse("TALAVEX PLOT 1\nTIMEUNIT -2\nXAXIS -1 1e3\nYAXIS 0.5 100\n"
                                "POINTS 1\n0.25 -7\nEND\n\nHOURS\n\nDEG",
            &plot));
        QCOMPARE(plot.timeUnit, qint16(-2));
        QCOMPARE(
            QList<double>({ plot.xMin, plot.xMax, plot.yMin }), QList<double>({ -1, 1e3, 0.5 }));
        QCOMPARE(plot.x, std::vector<double> { 0.25 });
        QCOMPARE(plot.y, std::vector<double> { -7.0 });
        QCOMPARE(plot.xTitle + plot.yTitle, QStringLiteral("HOURSDEG"));
        QVERIFY(plot.unitsCaption.isEmpty() && plot.intervalCaption.isEmpty());
    }

    // Stop with an unsaved plot: the answers to the question and to the overwrite check | the
    // file chosen in the save dialog ("-": cancelled) | the boxes shown | saved.
    void stopOffersToSave_data()
    {
        rows::add({ "no | N | - | ask | 0", "yes, cancelled dialog | Y | - | ask | 0",
            "yes, new file | Y | new | ask | 1",
            "yes, existing file kept | Y N | old | ask dup | 0",
            "yes, existing file overwritten | Y Y | old | ask dup | 1" });
    }
    void stopOffersToSave()
    {
        const QStringList f = rows::fields();
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.startSensing();
        rig.feed("  80\x07  81\x07");
        const QString path = rig.dir.filePath(QStringLiteral("plot.rec"));
        if (f[1] == QLatin1String("old"))
            testfiles::writeAll(path, "old");
        for (const QString& answer : f[0].split(QLatin1Char(' ')))
            rig.prompter.answers.push_back(answer == "Y" ? Answer::Yes : Answer::No);
        if (f[1] != QLatin1String("-"))
            rig.prompter.files.push_back(path);
        a.acquisition.mnuStop_Click();

        QCOMPARE(rig.prompter.titles().join(QLatin1Char(';')),
            QString(f[2])
                .replace("ask", "SAVE PLOTTED DATA TO FILE?")
                .replace(" dup", ";DUPLICATE FILE FOUND"));
        int dialogs = 0;
        for (const auto& shown : rig.prompter.shown) {
            if (shown.kind == QLatin1String("save")) {
                ++dialogs;
                QCOMPARE(shown.choice.directory, a.state.ProgramDirectory);
            }
        }
        QCOMPARE(dialogs, f[0].startsWith(QLatin1Char('Y')) ? 1 : 0);
        const bool saved = f[3] == QLatin1String("1");
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

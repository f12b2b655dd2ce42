#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "support/Rows.h"

#include "base/Numbers.h"
#include "chart/ChartAppearance.h"
#include "chart/ChartExport.h"
#include "chart/GraphSettingsModel.h"
#include "chart/MarkerDataModel.h"
#include "chart/PlotFile.h"

#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <functional>
#include <map>

namespace {
using Axis = ChartSurface::Axis;
using Answer = Prompter::Answer;
using Panel = GraphSettingsController;

QString pt(double x, double y) { return QStringLiteral("%1,%2").arg(x).arg(y); }

// Records the pictures asked for ("name format", failing with `failure` when given one), the
// CURSOR DATA window's openings and closings and the drawing of the pinned point.
struct Recorder : ChartImageWriter, MarkerDataWindows, PinnedPointView {
    bool writeImage(const QString& path, Format format, QString* why) override
    {
        writes << QDir(base).relativeFilePath(path) << QString::number(int(format));
        *why = failure;
        return failure.isEmpty();
    }
    void showMarkerData() override { ++shown; }
    void unloadMarkerData() override { ++closed; }
    void showPinnedPoint(const QPointF& p, const std::optional<QPointF>& c) override
    {
        pin = pt(p.x(), p.y()) + (c ? QStringLiteral(" to ") + pt(c->x(), c->y()) : QString());
    }
    void hidePinnedPoint() override
    {
        pin = QStringLiteral("-");
        ++hidden;
    }
    QString base, failure, pin = QStringLiteral("-");
    QStringList writes;
    int shown = 0, closed = 0, hidden = 0;
};
} // namespace

// The chart on the whole application: the engine, its commands, the graph settings panel, the
// cursor, the colours and the pictures.
class TestChartCommands : public QObject {
    Q_OBJECT
private slots:
    // A row is a script of steps ("_" a blank) from X 0..60, Y 0..100, alarm limits 85 and 25,
    // the strip chart on and the graph settings panel open. Steps: "i=2" the interval, "S", "C",
    // "A" the strip chart, compressed and Y scaling items, "lim" DISPLAY LIMIT MARKERS, "run" SEND
    // DATA IN REALTIME, "stop", "f3" readings of 70 ("f3@-5" of -5), "pts=x,y,..." a series put in
    // place, "x=a,b", "y=a,b" a range as the settings leave it, "zoom=a,b[,c,d]" a mouse zoom,
    // "all", "reset", "load" (the plot taken and put back), "clear", "save", "open=p" LOAD PLOT
    // FILE, "write=a=>b" a good plot file with a made b to e.rec ("\n" a line end, ":n" its first n
    // bytes), "snap" the plot taken, "look=P" an appearance item ("=2" settings entry 18),
    // "export=p" ("fail=why", "nowriter" first); the cursor's button "b", "m=x" the mouse and
    // "c=x" a click over X x, "esc", "wclose"; on the panel "maxX=v" (minX, minY, maxY) and Enter,
    // "accept=a,b,c,d", "ytitle=t", arrows ("XMinUp" ...), scrolls (">", "<", "Y^", "Yv"),
    // "chkLim", "chkAuto", "unit=2", "activate", "pclear", "close"; "yes", "no", "pick=p" the next
    // answer and file chosen, "old=p" a file there. Checks: "=a,b", "Y=a,b" the ranges, "xs=..."
    // the readings' X, "top=v" the running Y maximum, "same" the plot as snapped, "tail=p,text" a
    // file's end (CR LF throughout), "lines=a,b" the limit lines' ends, "held"/"live" VIEW HELD,
    // "!" overflow notices (each the live path's), "#n" readings, "R+"/"R-" RESET CHART, "?n" boxes
    // shown, "saved"/"unsaved", "rec=p,n" a plot file of n readings, "entries=y,x" settings entries
    // 0 and 2, "scheme=P", "wrote=p,f,..." pictures since the last, "units=HOURS,2", "inputs=1,0"
    // the range inputs and CLEAR CHART enabled; the cursor "on"/"off", "read=t,T",
    // "meas=dt,dT,rate" ("-" hidden), "pin=x,y[ to x,y]" as drawn, "win=shown,closed,unpinned".
    // After every step and reading the limit lines span the X range, shown as DISPLAY LIMIT
    // MARKERS, the panel's box and the settings entry say, the panel shows the ranges and Y
    // scaling, no hourglass is left on, and in compressed mode a live view starts at 0 and holds
    // the newest reading.
    void viewKeepsTheData_data()
    {
        rows::add({ "intervals | i=2 f4 xs=0,2,4,6 clear i=0.5 f4 xs=0,0.5,1,1.5 clear i=NO-INT f2 "
                    "#0 "
                    "i= f2 #0",
            "time units | i=2 unit=1 f4 xs=0,0.0333333,0.0666667,0.1 clear i=90 f2 xs=0,1.5 clear "
            "unit=2 i=1800 f2 xs=0,0.5 clear unit=3 i=43200 f2 xs=0,0.5",
            "clear | A f1@-5 f1@50 f1@70 top=70 clear #0 top=0 f1@99 xs=0 Y=-4,109",
            "Y rising | A f1@100 Y=0,110 top=100 f1@150 Y=0,165 y=-500,500 f1@150 Y=-500,500",
            "below zero lowers the running maximum | A f1@-20 Y=-18,100 top=-20 f1@100 Y=-18,110",
            "margins rounded to whole numbers | A f1@7 Y=0,8 f1@33 Y=0,36 f1@-7 Y=-6,36 top=-7",
            "Y scaling off | f1@150 f1@-20 Y=0,100 top=0",
            "compressed doubles | run C f61@20 =0,60 f1 =0,120",
            "strip chart pages | run f61@20 =0,60 f1 =60,120", "both off | S run f62 =0,60",
            "half steps: 59.5 rounds to the edge | run C i=0.5 f120 =0,60 f1 =0,120",
            "2 s steps | run i=2 f31 =0,60 f1 =60,120",
            "minutes re-anchor on the newest | unit=1 run i=105 f35 =0,60 f1 =59.5,119.5",
            "compressed, 3,000 readings | C run f3000 =0,3840",
            "compressed after paging | run f130 =120,180 C f1 =0,180",
            "a new run starts at 0 | x=120,360 run =0,240 f300 no stop run =0,240 no stop x=50,50 "
            "run =0,100",
            "window overflow on every path | S i=200 x=0,100000 f305 ! #305 maxX=90000 =0,90000 ! "
            "XMaxUp =0,108000 ! accept=0,70000,0,100 =0,70000 !",
            "X forward | > =60,120 run pts=0,50,25,51,75,52 > =60,120",
            "X forward re-anchored in days | unit=3 run pts=0,50,25,51,75,52 > =75,135",
            "X forward in 32-bit floats | x=0,0.1 > =0.10000000149011612,0.20000000298023224",
            "zero width | x=50,50 > =50,50 y=7,7 Y^ Y=7,7",
            "X back | x=60,120 < =0,60 < =0,60 x=30,90 < =0,90 x=60,100 < =20,60",
            "Y up and down | Y^ Y=100,200 y=0,100 Yv Y=-100,0 Yv Y=-200,-100",
            "limit lines | lines=0,72 x=10,110 lines=8,132 x=-10,60 lines=-10,72 x=10.5,61.5 "
            "lines=8,74.4 x=0.6,0.9 lines=0.6,1.2 x=0,3e9 lines=0,3.6e9",
            "limit lines shown | lim run f200 > < no stop all reset zoom=-30,30 reset load clear "
            "lim",
            "zoom held during a run | run f30 zoom=10,20 held R+ f200 =10,20 reset live R- "
            "=180,240",
            "held while compressing | C run f30 zoom=10,20 f100 =10,20 reset =0,240",
            "idle zooms, reset: the first view | f3 zoom=0,40 zoom=0,20 reset =0,60 zoom=10,60 "
            "reset =0,60 zoom=0,60,0,50 reset Y=0,100",
            "gestures | run f2 zoom=0,60 live R- zoom=0,60,-10,90 held R+ Y=-10,90 reset R-",
            "show all, then reset | S i=2 f4 all =0,6 R+ reset =0,60 R- #4 ?0",
            "show all | pts=0,100,1,150,2,120 x=300,360 all =0,2 Y=90,165 pts=0,-20,5,40 "
            "x=300,360 all =0,5 Y=-18,44 pts=0,70,604799,71 x=300,360 all =0,604799 Y=63,78.1",
            "show all of one reading | pts=0,50 x=300,360 all =0,60 Y=45,55",
            "show all without data | all ?1 =0,60 R- zoom=10,110 R+ reset R- =0,60",
            "X entered | x=10,110 maxX=200 =10,200 minX=0 =0,200 f500 x=10,110 maxX=450 =150,450",
            "Y entered | maxY=0.5 Y=0,0.5 minY=-40 Y=-40,0.5",
            "accepted | accept=0,400,-5,150.25 =0,400 Y=-5,150.25 entries=150.2,400",
            "accepted over the window | f500 accept=0,400,0,100 =100,400 entries=100,400 "
            "accept=50,200,0,99.96 =50,200 entries=100,200 accept=10,300.55,0,100 =10,300.55 "
            "entries=100,300.6",
            "arrows | x=10,110 XMinUp =12,110 XMaxDown =12,88 y=20,100 YMinUp Y=24,100 y=20,100 "
            "YMinDown Y=16,100 YMaxUp Y=16,120",
            "a minimum never reaches its maximum | x=100,110 XMinUp =100,110 y=90,100 YMinUp "
            "Y=90,100 YMaxDown Y=90,100",
            "arrows keep the window | f500 x=0,300 XMaxUp =60,360 x=100,390 XMinDown =80,380",
            "check boxes | chkLim chkAuto lim chkLim A chkAuto A",
            "time unit | f10 unit=2 units=HOURS,2 unit=4 unit=-1 units=HOURS,2 =0,60 #10",
            "inputs while acquiring | activate inputs=1,0 f5 activate inputs=1,1 run activate "
            "inputs=0,0 f2 no stop activate inputs=1,1",
            "the panel's clear and close | f5 x=10,110 pclear #0 =10,110 close zoom=0,20",
            "stop, no saving | run f2 no stop ?1 unsaved stop ?2 yes stop ?3 unsaved",
            "stop, saved | run f2 yes pick=p.rec stop ?1 saved rec=p.rec,2 stop ?1",
            "stop, file kept | old=p.rec run f2 yes no pick=p.rec stop ?2 unsaved rec=p.rec,-",
            "stop, file replaced | old=p.rec run f2 yes yes pick=p.rec stop ?2 saved rec=p.rec,2",
            "save without data | save ?1 unsaved", "save failing | f2 pick=none/p save ?1 unsaved",
            "a title on one line | ytitle=TWO\\nLINES f2 pick=t save "
            "tail=t.rec,\\nTWO_LINES\\nDEG_F\\n1\\n",
            "plot file round trip | unit=1 ytitle=DEGREES_F i=7 f1@100 f1@-20 f1@32767 f1@-32768 "
            "f1@0 f1@71 xs=0,0.1166667,0.2333333,0.35,0.4666667,0.5833333 y=-12.5,100 pick=run "
            "save saved rec=run.rec,6 tail=run.rec,END\\n\\nMINUTES\\n\\nDEGREES_F\\nDEG_F\\n7\\n "
            "snap clear run stop unsaved unit=0 i=1 ytitle=T open=run.rec same #6 units=MINUTES,1 "
            "saved ?0",
            "damaged plot files | f3 snap write=:0 open=e.rec write=:60 open=e.rec "
            "write=TALAVEX_PLOT_1=>100 open=e.rec write=POINTS_2=>POINTS_200 open=e.rec "
            "write=POINTS_2=>POINTS_1 open=e.rec write=POINTS_2=>POINTS_-1 open=e.rec "
            "write=POINTS_2=>POINTS_1.5 open=e.rec write=1_51=>1_5x1 open=e.rec write=1_51=>151 "
            "open=e.rec write=1_51=>1_inf open=e.rec write=YAXIS_0_100=>YAXIS_0 open=e.rec "
            "write=TIMEUNIT_0=>TIMEUNIT_0.5 open=e.rec write=TIMEUNIT_0=>TIMEUNIT_32768 open=e.rec "
            "write=END=>ENDS open=e.rec write=END\\n\\n=>END\\nX\\n open=e.rec ?15 same unsaved",
            "plot files that load | write=0_50=>0_50 open=e.rec xs=0,1 saved write=0_50\\n1_51=>"
            "-1e1_5e-1\\n1_51 open=e.rec xs=-10,1 write=TIMEUNIT_0=>TIMEUNIT_-2 open=e.rec xs=0,1 "
            "write=TEMP\\nDEG_F\\n1=>TEMP open=e.rec xs=0,1 ?0",
            "cursor | pts=1,100,11,200,21,150,31,-50 x=0,80 b on win=1,0,0 b off win=1,1,0 b "
            "wclose off wclose win=2,2,0 m=3 read=,",
            "read-out | pts=1,100,11,200,21,150,31,-50 x=0,80 b m=0.5 read=NO_DATA,NO_DATA m=3.5 "
            "read=125.00,3.50 m=11 read=200.00,"
            "11.00 m=16 read=175.00,16.00 m=26 read=50.00,26.00 m=31 read=-50.00,31.00",
            "read-out, rounded | pts=1,100,11,200,21,150,31,-50 x=0,80 b m=4.333333 "
            "read=133.33,4.33",
            "read-out of one reading | pts=4,50 x=0,80 b m=4 read=50.00,4.00 m=4.5 read=NO_DATA,"
            "NO_DATA clear m=4 read=NO_DATA,NO_DATA",
            "read-out beside the data | pts=1,100,11,200,21,150,31,-50 x=0,80 b m=31.5 "
            "read=NO_DATA,NO_DATA m=80 read=NO_DATA,"
            "NO_DATA m=80.1 read=OFF_CHART,NO_DATA m=-1 read=OFF_CHART,NO_DATA",
            "pinned | pts=1,100,11,200,21,150,31,-50 x=0,80 b c=3.5 meas=0.00,0.00,SAME_TIME "
            "pin=3.5,125_to_3.5,125 m=8.5 "
            "meas=5.00,50.00,600.00 pin=3.5,125_to_8.5,175",
            "measured beside the data | pts=1,100,11,200,21,150,31,-50 x=0,80 b c=3.5 m=31.5 "
            "meas=NO_DATA,NO_DATA,NO_DATA "
            "pin=3.5,125 m=-1 meas=NO_DATA,OFF_CHART,NO_DATA pin=3.5,125",
            "no pin beside the data | pts=1,100,11,200,21,150,31,-50 x=0,80 b c=31.5 c=-1 meas=- "
            "pin=- win=1,0,0",
            "unpinned | pts=1,100,11,200,21,150,31,-50 x=0,80 b c=3.5 c=5 meas=- pin=- win=1,0,1 "
            "esc win=1,0,1 m=11 read=200.00,"
            "11.00 c=3.5 esc win=1,0,2 c=3.5 b off meas=- win=1,1,3 b c=3.5 wclose win=2,2,4",
            "a pinned point goes with its readings | pts=1,100,11,200,21,150,31,-50 x=0,80 b c=3.5 "
            "x=0,80 pin=3.5,125_to_3.5,125 "
            "clear pin=- meas=-",
            "schemes | scheme=S look=O scheme=O look=O scheme=S look=P scheme=P look=P scheme=S "
            "look=O look=S scheme=S look=S scheme=S look=P look=0 scheme=S look=1 scheme=P look=2 "
            "scheme=O look=3 scheme=O look= scheme=O",
            "export | export=a.png export=b.PDF export=c.svg export=chart export=my.dir/chart "
            "wrote=a.png,0,b.PDF,1,c.svg,2,chart.png,0,my.dir/chart.png,0 export= export=a.jpg ?1",
            "export over | old=a.png old=b.png yes export=a.png no export=b.png ?2 wrote=a.png,0",
            "export failing | fail=denied export=a.png nowriter export=b.png ?2 wrote=a.png,0" });
    }
    void viewKeepsTheData()
    {
        AppRig rig;
        Application& a = rig.app();
        ChartCommands& c = a.chartCommands;
        Panel& panel = a.graphSettings;
        GraphSettingsModel& boxes = a.graphSettingsModel;
        const MarkerDataModel& data = a.markerDataModel;
        QStringList notices;
        int noticesSeen = 0, busy = 0;
        a.chart.setOverflowNotice([&notices](const QString& what) { notices << what; });
        c.setBusyIndicator([&busy](bool on) { busy += on ? 1 : -1; });
        Recorder recorder;
        recorder.base = rig.dir.path();
        a.chartExport.setWriter(&recorder);
        a.cursor.setWindows(&recorder);
        a.cursor.setPinnedPointView(&recorder);
        a.main.cmdMarkers.setBackColor(0x123456);
        QDir(rig.dir.path()).mkdir(QStringLiteral("my.dir"));
        a.state.SettingsValues.highAlarmLimit.text = QStringLiteral("85");
        a.state.SettingsValues.lowAlarmLimit.text = QStringLiteral("25");
        a.controller.mnuIniChart_Click();
        panel.Form_Load();
        PlotData snapshot;
        const QByteArray goodPlot = "TALAVEX PLOT 1\r\nTIMEUNIT 0\r\nXAXIS 0 60\r\nYAXIS 0 100\r\n"
                                    "POINTS 2\r\n0 50\r\n1 51\r\nEND\r\n\r\nSECONDS\r\n\r\nTEMP\r\n"
                                    "DEG F\r\n1\r\n";
        Control& interval = a.main.lblSystParameters(2);
        interval.setCaption(QStringLiteral("1"));
        auto toggle = [&](Control& box, void (Panel::*click)()) {
            box.setChecked(!box.checked());
            (panel.*click)();
        };
        auto pixel = [&](double x) {
            const double x0 = rig.chart.axisMin(Axis::X), x1 = rig.chart.axisMax(Axis::X);
            return QPointF((x - x0) / (x1 - x0) * InMemoryChartSurface::PlotWidth, 300);
        };
        auto put = [&](const QList<double>& xy) { // a series put in place as a loaded plot is
            PlotData plot = c.TakePlot();
            plot.x = plot.y = {};
            for (int i = 0; i + 1 < xy.size(); i += 2)
                plot.x.push_back(xy[i]), plot.y.push_back(xy[i + 1]);
            c.RestorePlot(plot);
        };
        auto fromSettings = [&](const QString& entry18) { // as the settings file is applied
            a.state.SettingsValues.appearance.text = entry18;
            a.settings.ApplySettings();
            a.controller.mnuIniChart_Click();
            panel.Form_Load();
        };
        const std::map<QString, std::function<void()>> commands {
            { "S", [&] { a.controller.mnuRealTimeGraphOn_Click(); } },
            { "C", [&] { a.controller.mnuAutoCompressed_Click(); } },
            { "A", [&] { a.controller.mnuAutoScaleYAxis_Click(); } },
            { "lim", [&] { c.mnuDispLimits_Click(); } },
            { "run", [&] { rig.startSensing(); } },
            { "stop", [&] { a.acquisition.mnuStop_Click(); } },
            { "all", [&] { c.mnuShowAllPts_Click(); } },
            { "reset", [&] { c.cmdResetChart_Click(); } },
            { "load", [&] { c.RestorePlot(c.TakePlot()); } },
            { "clear", [&] { a.controller.mnuClearChart_Click(); } },
            { "save", [&] { c.mnuSavePlotToFile_Click(); } },
            { "b", [&] { a.cursor.cmdMarkers_Click(); } },
            { "esc", [&] { a.cursor.Unpin(); } },
            { "wclose", [&] { a.cursor.frmMarkerData_Unload(); } },
            { ">", [&] { panel.XDomainScroll_UpClick(); } },
            { "<", [&] { panel.XDomainScroll_DownClick(); } },
            { "Y^", [&] { panel.YDomainScroll_UpClick(); } },
            { "Yv", [&] { panel.YDomainScroll_DownClick(); } },
            { "XMinUp", [&] { panel.XMinIncrement_UpClick(); } },
            { "XMaxUp", [&] { panel.XMaxIncrement_UpClick(); } },
            { "XMinDown", [&] { panel.XMinIncrement_DownClick(); } },
            { "XMaxDown", [&] { panel.XMaxIncrement_DownClick(); } },
            { "YMinUp", [&] { panel.YMinIncrement_UpClick(); } },
            { "YMinDown", [&] { panel.YMinIncrement_DownClick(); } },
            { "YMaxUp", [&] { panel.YMaxIncrement_UpClick(); } },
            { "YMaxDown", [&] { panel.YMaxIncrement_DownClick(); } },
            { "chkLim", [&] { toggle(boxes.chkDispLimits, &Panel::chkDispLimits_Click); } },
            { "chkAuto", [&] { toggle(boxes.chkAutoRange, &Panel::chkAutoRange_Click); } },
            { "activate", [&] { panel.Form_Activate(); } },
            { "pclear", [&] { panel.cmdResetChartParameters_Click(); } },
            { "close", [&] { panel.cmdClose_Click(); } },
            { "nowriter", [&] { a.chartExport.setWriter(nullptr); } },
            { "yes", [&] { rig.prompter.answers.push_back(Answer::Yes); } },
            { "no", [&] { rig.prompter.answers.push_back(Answer::No); } },
        };
        const std::map<QString, std::pair<Control*, void (Panel::*)(int)>> typed {
            { "minX", { &boxes.txtMinX, &Panel::txtMinX_KeyPress } },
            { "maxX", { &boxes.txtMaxX, &Panel::txtMaxX_KeyPress } },
            { "minY", { &boxes.txtMinY, &Panel::txtMinY_KeyPress } },
            { "maxY", { &boxes.txtMaxY, &Panel::txtMaxY_KeyPress } },
        };
        auto box = [](double v) { return Numbers::Format(v, QStringLiteral("0.##")); };
        auto check = [&] {
            const bool shown = a.main.mnuDispLimits.checked();
            for (int series : { 2, 3 }) {
                QVERIFY(rig.chart.x(series, 1) <= rig.chart.axisMin(Axis::X));
                QVERIFY(rig.chart.x(series, 2) >= rig.chart.axisMax(Axis::X));
                QCOMPARE(rig.chart.seriesVisible(series), shown);
            }
            QCOMPARE(a.state.SettingsValues.limitLinesShown.valueIsOne(), shown);
            QCOMPARE(busy, 0);
            QCOMPARE(a.chart.panel() == &panel, a.state.GraphSettingsOpen);
            QCOMPARE(recorder.pin == "-", !a.cursor.pinned());
            // The chart's pixels map onto its ranges, Y upwards.
            QCOMPARE(rig.chart.pixelToData({ 0, 600 }).y(), rig.chart.axisMin(Axis::Y));
            if (!a.state.GraphSettingsOpen)
                return;
            QCOMPARE(boxes.chkDispLimits.checked(), shown);
            QCOMPARE(boxes.chkAutoRange.checked(), a.main.mnuAutoScaleYAxis.checked());
            QCOMPARE(QStringList({ boxes.txtMinX.caption(), boxes.txtMaxX.caption(),
                         boxes.txtMinY.caption(), boxes.txtMaxY.caption() }),
                QStringList({ box(rig.chart.axisMin(Axis::X)), box(rig.chart.axisMax(Axis::X)),
                    box(rig.chart.axisMin(Axis::Y)), box(rig.chart.axisMax(Axis::Y)) }));
        };
        const QRegularExpression readings(QStringLiteral("^f(\\d+)(@(-?\\d+))?$"));
        for (const QString& step : rows::fields()[0].split(QLatin1Char(' '))) {
            const QString op = step.section(QLatin1Char('='), 0, 0);
            const QString arg = step.section(QLatin1Char('='), 1).replace('_', ' ');
            const QStringList v = arg.split(QLatin1Char(','));
            const QString path = rig.dir.filePath(v[0]);
            const auto command = commands.find(op);
            const auto entry = typed.find(op);
            const QRegularExpressionMatch fed = readings.match(op);
            if (command != commands.end()) {
                command->second();
            } else if (entry != typed.end()) {
                entry->second.first->setCaption(v[0]);
                (panel.*entry->second.second)(Panel::KeyEnter);
            } else if (fed.hasMatch()) {
                for (int i = fed.captured(1).toInt(); i > 0; --i) {
                    const int value = fed.captured(3).isEmpty() ? 70 : fed.captured(3).toInt();
                    a.state.Instrument.units = QStringLiteral("DEG F");
                    a.state.Instrument.interval = SamplingInterval(interval.caption());
                    a.state.TimeInterval = float(Numbers::Val(interval.caption()));
                    a.chart.AddReadingToChart(qint16(value));
                    if (a.main.mnuAutoCompressed.checked() && !a.main.cmdResetChart.visible()) {
                        QCOMPARE(rig.chart.axisMin(Axis::X), 0.0);
                        QVERIFY(rig.chart.x(1, rig.chart.pointCount(1) - 1)
                            <= rig.chart.axisMax(Axis::X));
                    }
                    check();
                    if (QTest::currentTestFailed())
                        return;
                }
            } else if (op == "i") {
                interval.setCaption(arg);
            } else if (op == "pts") {
                put(rows::numbers(arg));
            } else if (op == "x" || op == "y" || op == "zoom") {
                if (op == "zoom")
                    c.TempChart_InteractionStart();
                for (int i = 0; i + 1 < v.size(); i += 2) {
                    const Axis axis = op == "y" || i == 2 ? Axis::Y : Axis::X;
                    rig.chart.setAxisMin(axis, v[i].toDouble());
                    rig.chart.setAxisMax(axis, v[i + 1].toDouble());
                }
                if (op == "zoom") {
                    c.TempChart_InteractionEnd();
                } else {
                    a.controller.mnuIniChart_Click();
                    panel.UpdatePanelWithCurrentChartSettings();
                }
            } else if (op == "accept") {
                boxes.txtMinX.setCaption(v[0]);
                boxes.txtMaxX.setCaption(v[1]);
                boxes.txtMinY.setCaption(v[2]);
                boxes.txtMaxY.setCaption(v[3]);
                boxes.txtYTitle.setCaption(QStringLiteral("ACCEPTED"));
                panel.cmdAccept_Click();
            } else if (op == "unit") {
                panel.comTimeUnits_Click(arg.toInt());
            } else if (op == "m" || op == "c") { // the marker follows, unless a click unpins
                const bool follows = a.cursor.isOn() && (op == "m" || !a.cursor.pinned());
                op == "m" ? a.cursor.TempChart_MouseMove(pixel(arg.toDouble()))
                          : a.cursor.TempChart_Click(pixel(arg.toDouble()));
                QVERIFY(!follows || qFuzzyCompare(rig.chart.markerX() + 100, arg.toDouble() + 100));
            } else if (op == "look") {
                arg == "S"       ? a.appearance.mnuStandardChart_Click()
                    : arg == "O" ? a.appearance.mnuScopeChart_Click()
                    : arg == "P" ? a.appearance.mnuPlainChart_Click()
                                 : fromSettings(arg);
            } else if (op == "export") {
                rig.prompter.files.push_back(arg.isEmpty() ? QString() : path);
                a.chartExport.mnuExportChart_Click();
            } else if (op == "fail") {
                recorder.failure = arg;
            } else if (op == "ytitle") {
                boxes.txtYTitle.setCaption(QString(arg).replace("\\n", "\n"));
                panel.txtYTitle_KeyPress(Panel::KeyEnter);
            } else if (op == "write") { // a good plot file edited: "from=>to", or ":n" its n bytes
                const QByteArray edit = arg.toUtf8().replace("\\n", "\r\n");
                const QList<QByteArray> fromTo = edit.split('>');
                testfiles::writeAll(rig.dir.filePath("e.rec"),
                    edit.startsWith(':')
                        ? goodPlot.left(edit.mid(1).toInt())
                        : QByteArray(goodPlot).replace(fromTo[0].chopped(1), fromTo[1]));
            } else if (op == "open") {
                rig.prompter.files.push_back(path);
                c.mnuLoadPlotFile_Click();
            } else if (op == "snap") {
                snapshot = c.TakePlot();
            } else if (op == "same") {
                QVERIFY(c.TakePlot() == snapshot);
                QCOMPARE(interval.caption(), snapshot.intervalCaption);
            } else if (op == "tail") {
                const QByteArray text = testfiles::readAll(path);
                QVERIFY(text.endsWith(v[1].toUtf8().replace("\\n", "\r\n")));
                QCOMPARE(text.count("\r\n"), text.count('\n'));
            } else if (op == "pick") {
                rig.prompter.files.push_back(path);
            } else if (op == "old") {
                testfiles::writeAll(path, "old");
            } else if (op.isEmpty() || op == "Y") {
                const Axis axis = op.isEmpty() ? Axis::X : Axis::Y;
                QCOMPARE(rig.chart.axisMin(axis), v[0].toDouble());
                QCOMPARE(rig.chart.axisMax(axis), v[1].toDouble());
            } else if (op == "xs") {
                QList<double> xs = rows::numbers(arg);
                QCOMPARE(xs.size(), rig.chart.pointCount(1) - 1);
                for (int i = 1; i < rig.chart.pointCount(1); ++i)
                    QVERIFY(qAbs(xs[i - 1] - rig.chart.x(1, i)) < 1e-6);
            } else if (op == "top") {
                QCOMPARE(a.state.RunningYMax, arg.toDouble());
            } else if (op == "lines") {
                for (double y : { 85, 25 })
                    QCOMPARE(rig.chart.drawnPoints(y == 85 ? 2 : 3),
                        (std::vector<QPointF> { { v[0].toDouble(), y }, { v[1].toDouble(), y } }));
            } else if (op == "held" || op == "live") {
                QCOMPARE(a.main.lblViewHeld.visible(), op == "held");
            } else if (op == "R+" || op == "R-") {
                QCOMPARE(a.main.cmdResetChart.visible(), op == "R+");
            } else if (op == "!") {
                QVERIFY(notices.size() > noticesSeen);
                QCOMPARE(notices.count(notices.first()), notices.size());
                noticesSeen = int(notices.size());
            } else if (op.startsWith(QLatin1Char('#'))) {
                QCOMPARE(rig.chart.pointCount(1), op.mid(1).toInt() + 1);
            } else if (op.startsWith(QLatin1Char('?'))) {
                QCOMPARE(int(rig.prompter.messages().size()), op.mid(1).toInt());
            } else if (op == "saved" || op == "unsaved") {
                QCOMPARE(a.state.PlotSaved, op == "saved");
            } else if (op == "rec") {
                PlotData plot;
                QCOMPARE(PlotFile::Read(path, &plot), v[1] != "-");
                QCOMPARE(plot.y.size(), size_t(v[1].toInt()));
            } else if (op == "entries") {
                const Settings& s = a.state.SettingsValues;
                QCOMPARE(QStringList({ s.yAxisMax.text, s.xAxisMax.text }), v);
                QCOMPARE(rig.chart.axisTitle(Axis::Y), QStringLiteral("ACCEPTED"));
            } else if (op == "scheme") {
                const MainWindowModel& m = a.main;
                QCOMPARE(QString(m.mnuStandardChart.checked() ? "S" : "")
                        + (m.mnuPlainChart.checked() ? "P" : "")
                        + (m.mnuScopeChart.checked() ? "O" : ""),
                    arg);
                const auto& stored = ChartAppearance::storedValues(
                    ChartAppearance::Scheme(QStringLiteral("SPO").indexOf(arg))); // as entry 18
                for (int i = 0; i < ChartSurface::ColorCount; ++i)
                    QCOMPARE(rig.chart.color(ChartSurface::Color(i)),
                        Colors::fromBgr(stored[size_t(i)]));
            } else if (op == "wrote") {
                QCOMPARE(recorder.writes.join(','), arg);
                recorder.writes.clear();
            } else if (op == "units") {
                QCOMPARE(rig.chart.axisTitle(Axis::X), v[0]);
                QCOMPARE(a.state.SettingsValues.timeUnit.text, v[1]);
                QCOMPARE(a.state.TimeUnitIndex, qint16(v[1].toInt()));
                QCOMPARE(boxes.timeUnitIndex(), v[1].toInt());
            } else if (op == "inputs") {
                QCOMPARE(boxes.txtMinX.enabled() && boxes.XMaxIncrement.enabled()
                        && boxes.comTimeUnits.enabled() && boxes.cmdAccept.enabled(),
                    v[0] == "1");
                QCOMPARE(boxes.cmdResetChartParameters.enabled(), v[1] == "1");
            } else if (op == "on" || op == "off") {
                QCOMPARE(a.main.cmdMarkers.caption(), op == "on" ? "CURSOR ON" : "CURSOR OFF");
                QCOMPARE(a.main.cmdMarkers.backColor(), op == "on" ? Colors::Yellow : 0x123456);
                QCOMPARE(rig.chart.markerVisible(), op == "on");
            } else if (op == "read") {
                QCOMPARE(data.lblTemp.caption() + ',' + data.lblTime.caption(), arg);
            } else if (op == "meas") {
                const QStringList shown { data.lblDeltaTime.caption(), data.lblDeltaTemp.caption(),
                    data.lblRate.caption() };
                QCOMPARE(data.measureShown() ? shown : QStringList { "-" }, v);
            } else if (op == "pin") {
                QCOMPARE(recorder.pin, arg);
            } else if (op == "win") {
                QCOMPARE(
                    pt(recorder.shown, recorder.closed) + ',' + QString::number(recorder.hidden),
                    arg);
            } else {
                QFAIL(qPrintable(step));
            }
            check();
            if (QTest::currentTestFailed())
                return;
        }
    }
};
TALAVEX_TEST(TestChartCommands)
#include "TestChartCommands.moc"

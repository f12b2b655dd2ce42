#include "support/AppRig.h"
#include "support/TestRegistry.h"

#include "link/sim/PtyServer.h"
#include "store/FileHeader.h"

#include <QTest>
#include <map>

namespace {
const QMap<qint64, QString> colourNames { { Colors::Green, "green" }, { Colors::Red, "red" },
    { Colors::Yellow, "yellow" }, { Colors::Grey, "grey" }, { Colors::Default, "default" } };

QList<QByteArray> fileLines(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
}
} // namespace

// The operator's view of whole runs: the simulated instrument on a pseudo-terminal, the real
// serial adapter and the real program with a fake clock, from the menu commands to the boxes,
// labels, chart, store and files.
class TestEndToEnd : public QObject {
    Q_OBJECT
private slots:
    void operatorRuns_data()
    {
        QTest::addColumn<QString>("simulator"); // its options; led by "tool": its own process
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("titles"); // the boxes shown, in order
        QTest::addColumn<QString>("labels"); // the nine parameter labels
        QTest::addColumn<QString>("readout"); // the current temperature: caption/colour
        QTest::addColumn<int>("plotted"); // readings on the chart; -N: at least N
        QTest::addColumn<QString>("counts"); // the stored points window's totals
        QTest::addColumn<QByteArray>("obtained"); // LAST_OBTAINED_DATA_PTS.dat after its heading
        const QString f1 = "DEG F|1|0.95|85|25|110|72|75|95";
        const QString c2 = "DEG C|2|0.95|29|-4|43|******|23|35";
        const QString save = "SAVE PLOTTED DATA TO FILE?";
        const QString halted = "IR SYSTEM HAS HALTED DATA TRANSMISSION";
        const QString storedWhileSensing = "RECEIVED STORED DATA WHILE IN REAL TIME MODE|" + save;
        const QString counts = "12 READINGS, 2 EMPTY LOCATIONS";
        // The parameter block of seed 1 in DEG F at 1 s, as logged, with its first reading.
        const QByteArray blockF = "\t\x0b  DEG F\r\r\n\tINT (SECS)      1\r\r\n"
                                  "\tEMISSIVITY      0.95\r\r\n\tHI ALARM        85\r\r\n"
                                  "\tLO ALARM        25\r\r\n\tMAX TEMP        110\r\r\n"
                                  "\tAMB TEMP        72\r\r\n\tMIN TEMP        75\r\r\n"
                                  "\tAVG TEMP        95\r\r\n\t\r\n    95   DEG F\r\r\n";
        const QByteArray next2 = "    96\t  DEG\tF\r\n    94\t  DEG\tF\r\n";
        auto row = [](const char* name, const char* sim, const char* script, QString titles,
                       QString labels, const char* readout, int plotted, QString counts = "",
                       QByteArray obtained = {}) {
            QTest::newRow(name) << QString(sim) << QString(script) << titles << labels
                                << QString(readout) << plotted << counts << obtained;
        };
        const char* silentAfter3 = "--interval 1 --fault silence --fault-after 3";
        row("real time, F, with a text stamp", "--interval 1 --fault silence --fault-after 6",
            "stamp=HOT_SPOT sense p6", "", f1, "94/red", 6, "",
            "\x07HOT SPOT\r\n" + blockF + next2
                + QByteArray(3, 'x').replace("x", "    94\t  DEG\tF\r\n"));
        row("real time, C, short form, interval 2, no ambient sensor, from the simulator program",
            "tool --units C --interval 2 --short --no-ambient --seed 3 --fault silence "
            "--fault-after 5 --time-scale 0.001",
            "sense p5 stop", save, c2, "/green", 5);
        row("interval unknown", "--interval 0 --fault silence --fault-after 4", "sense readout",
            "TIME INTERVAL UNKNOWN.", "DEG F|NO-INT|0.95|85|25|110|72|75|95", "94/red", 0);
        row("readings beyond 16 bits", silentAfter3, "sense p3 >__99999 >1E309 readout", "", f1,
            "94/grey", 3, "", blockF + next2 + "  99999\r\n1E309\r\n");
        row("temperature bar", "--units C --interval 1 --fault silence --fault-after 3",
            "bar sense p3 bar=TEMP._BAR_-_DEG_C", "", "DEG C|1|0.95|29|-4|43|22|24|35", "35/green",
            3);
        row("silence", "--interval 1 --fault silence --fault-after 4", "sense p4 +4 idle",
            halted + "|" + save, f1, "/red", 4);
        row("port lost", silentAfter3, "sense p3 unplug idle", "COMM PORT LOST|" + save, f1, "/red",
            3);
        row("no device", "", "nodevice sense", "CANNOT OPEN COMM PORT", "", "/default", 0);
        row("stored readings while sensing", "--interval 1 --fault wrongmode --fault-after 3",
            "sense idle", storedWhileSensing, f1, "/red", 3);
        row("blank records", "--interval 1 --fault blank --fault-after 3", "sense idle",
            "RECEIVING BLANK LINES AS DATA.|" + save, f1, "/red", 3);
        // Random bytes invent no reading and load no block; the first "#" halts.
        row("noise", "--interval 1 --fault noise --fault-after 1 --seed 5", "sense idle",
            storedWhileSensing, "DEG F|1|0.95|85|25|110|72|19|88", "/grey", 1);
        row("noise that never ends a record",
            "--interval 1 --fault noise-nobel --fault-after 2 --time-scale 0.00001",
            "sense sent=200000 stop", save, f1, "/red", 2);
        row("dialogs held open", "--interval 1 --time-scale 0.02",
            "sense hold=export hold=search stop", DemoController::summaryTitle() + "|" + save, f1,
            "?", -20);
        row("compressed, a thousand readings", "--interval 1 --fault silence --fault-after 1001",
            "compressed sense p1001 x=0,1920 exit dat10=1 dat11=0", "", f1, "89/red", 1001);
        row("a second run after the first paged on",
            "--interval 1 --fault silence --fault-after 200",
            "sense p200 x=180,240 stop sense p200 x=180,240 stop", save + "|" + save, f1, "/green",
            200);
        row("download", "--mode download --stored 12 --empty 2", "download counts +18 idle", halted,
            "", "/default", 0, counts);
        row("download from the simulator program", "tool --mode download --stored 12 --empty 2",
            "download counts stop", "", "", "/default", 0, counts);
        row("readings while downloading", "--mode download --fault wrongmode --fault-after 2",
            "download idle", "RECEIVED REAL TIME DATA WHILE IN DOWNLOAD STORED DATA MODE", "",
            "/default", 0, "2 READINGS, 0 EMPTY LOCATIONS");
    }

    void operatorRuns()
    {
        QFETCH(QString, simulator);
        QFETCH(QString, script);
        QFETCH(QString, titles);
        QFETCH(QString, labels);
        QFETCH(QString, readout);
        QFETCH(int, plotted);
        QFETCH(QString, counts);
        QFETCH(QByteArray, obtained);

        QStringList args = simulator.split(' ', Qt::SkipEmptyParts);
        const bool tool = args.value(0) == "tool";
        if (tool)
            args = args.mid(1) + QStringList { "--rate", "0", "--stay" };
        const qsizetype scale = args.indexOf("--time-scale");
        const SimulatorOptions options = AppRig::simulatorOptions(args);
        AppRig rig(options, scale < 0 ? 0.001 : args.value(scale + 1).toDouble(),
            tool ? args : QStringList());
        Application& a = rig.app();
        a.controller.Form_Load();
        const InstrumentSimulator oracle(options);
        const auto reading
            = [&](int k) { return oracle.temperatureAt(oracle.firstLiveSample() + k); };
        const auto points = [&] { return rig.chart.pointCount(1) - 1; };
        const auto running = [&] {
            return a.main.mnuSenseTemperature.checked() || a.main.mnuDownloadData.checked();
        };
        const Control& current = a.main.lblCurrentTemp;
        const auto shownReadout
            = [&] { return current.caption() + '/' + colourNames.value(current.foreColor()); };
        const Control& totals = a.storedPointsModel.lblReceivedCounts;
        bool clockStill = true;
        QByteArray heading;

        // A dialog of the program held open for ten seconds on the fake clock, while the
        // readings go on arriving and the watchdog looks every second.
        const auto holdOpen = [&](const Prompter::Message&) {
            clockStill = false;
            for (int second = 0; second < 10; ++second) {
                rig.clock.advance(1);
                const int before = points();
                QTRY_VERIFY_WITH_TIMEOUT(points() > before, 10000);
                a.acquisition.tmrCheckTransmission_Timer();
            }
        };
        const std::map<QString, std::function<void()>> commands {
            { "sense",
                [&] {
                    heading = BuildFileHeader(a.state, rig.clock).toLatin1() + "\r\n";
                    rig.startSensing();
                    if (!a.main.mnuSenseTemperature.checked())
                        heading.clear();
                } },
            { "download", [&] { rig.startDownload(); } },
            { "stop", [&] { a.acquisition.mnuStop_Click(); } },
            { "exit", [&] { a.controller.Shutdown(); } },
            { "bar", [&] { a.tempBarWindow.mnuViewTempBar_Click(); } },
            { "compressed", [&] { a.controller.mnuAutoCompressed_Click(); } },
            { "unplug", [&] { rig.instrument.close(); } },
            // A device that is not there at all: a closed terminal's number may be taken again.
            { "nodevice", [&] { rig.portMap.setRunOverride(1, rig.dir.filePath("ttyGone0")); } },
            { "idle", [&] { QTRY_VERIFY_WITH_TIMEOUT(!running(), 20000); } },
            { "readout", [&] { QTRY_COMPARE_WITH_TIMEOUT(shownReadout(), readout, 20000); } },
            { "counts", [&] { QTRY_COMPARE_WITH_TIMEOUT(totals.caption(), counts, 20000); } },
        };
        for (const QString& step : script.split(' ')) {
            const QString op = step.section('=', 0, 0);
            const QString value = step.section('=', 1).replace('_', ' ');
            if (commands.count(step)) {
                commands.at(step)();
            } else if (op == "hold") { // CHART > EXPORT's file chooser, or DEMO's summary box
                rig.prompter.onShow = holdOpen;
                if (value == "export")
                    a.chartExport.mnuExportChart_Click();
                else
                    a.demo.mnuSearchForIR_Click();
                rig.prompter.onShow = nullptr;
            } else if (op == "stamp") { // COMMAND > TEXT STAMP
                rig.prompter.inputs.push_back(value);
                a.files.mnuTextStamp_Click();
            } else if (op == "sent") { // the instrument has sent this many characters
                QTRY_VERIFY_WITH_TIMEOUT(rig.instrument.charactersSent() >= value.toInt(), 20000);
            } else if (op.startsWith('p')) { // wait for this many readings on the chart
                QTRY_COMPARE_WITH_TIMEOUT(points(), op.mid(1).toInt(), 20000);
            } else if (op.startsWith('+')) { // the clock moves on
                rig.clock.advance(op.mid(1).toInt());
                clockStill = false;
            } else if (op.startsWith('>')) { // a record of our own on the line
                rig.instrument.server().write(op.mid(1).replace('_', ' ').toLatin1() + '\x07');
            } else if (op == "x") { // the X axis
                QCOMPARE(QStringLiteral("%1,%2")
                             .arg(rig.chart.axisMin(ChartSurface::Axis::X))
                             .arg(rig.chart.axisMax(ChartSurface::Axis::X)),
                    value);
            } else if (op == "bar") { // the bar's caption, and its top at the last reading
                QCOMPARE(a.bar.lblTempBar.caption(), value);
                const auto top = TempBar::BarTop(
                    qint16(rig.chart.y(1, points())), a.bar.GetMinTemp(), a.bar.GetMaxTemp());
                QCOMPARE(a.bar.indicatorTop(), int(top.value_or(-1)));
            } else if (op.startsWith("dat")) { // a line of Settings.dat
                QCOMPARE(fileLines(rig.dir.filePath("Settings.dat")).value(op.mid(3).toInt() - 1),
                    value.toLatin1() + '\r');
            } else {
                QFAIL(qPrintable("unknown step " + step));
            }
            if (QTest::currentTestFailed())
                return;
        }

        QCOMPARE(rig.prompter.titles(), titles.split('|', Qt::SkipEmptyParts));
        QStringList shown;
        for (int i = 1; i <= 9; ++i)
            shown << a.main.lblSystParameters(i).caption();
        QCOMPARE(shown.join('|'), labels.isEmpty() ? QString(8, '|') : labels);
        if (readout != "?") // a count of readings that depends on the pace
            QCOMPARE(shownReadout(), readout);
        QCOMPARE(a.acquisition.tmrBeep().isActive(),
            a.main.mnuSenseTemperature.checked()
                && (current.foreColor() == Colors::Red || current.foreColor() == Colors::Yellow));

        // The chart holds the readings in order, one sampling interval apart.
        QCOMPARE(plotted < 0 ? qMin(points(), -plotted) : points(), qAbs(plotted));
        for (int k = 0; k < points(); ++k) {
            QCOMPARE(rig.chart.y(1, k + 1), double(reading(k)));
            QCOMPARE(rig.chart.x(1, k + 1), double(k * options.intervalSeconds));
        }
        // The live log has a line for each reading the readout took.
        const QList<QByteArray> live = fileLines(rig.dir.filePath("datatemp.dat"));
        if (!heading.isEmpty() && options.intervalSeconds > 0)
            QCOMPARE(live.size(), 2 + points());
        for (int k = 0; k + 2 < live.size(); ++k) {
            const QByteArray line = live.at(k + 1).chopped(1);
            QCOMPARE(clockStill ? line : line.split(',').value(3),
                QByteArray(clockStill ? "2026-03-14,09:05:07,0," : "")
                    + QByteArray::number(reading(k)));
        }
        // The last-obtained file: its heading, then as given, or else the parameter block's
        // eleven lines and then the chart's readings after the block's own, once and in order.
        const QList<QByteArray> lines = fileLines(rig.dir.filePath("LAST_OBTAINED_DATA_PTS.dat"));
        const QByteArray file = lines.join('\n');
        if (!heading.isEmpty())
            QVERIFY2(file.startsWith(heading), file.left(300));
        if (!obtained.isEmpty()) {
            QCOMPARE(file.mid(heading.size()), obtained);
        } else if (!heading.isEmpty()) {
            QList<double> numbers; // the lines after the block's that hold a number
            for (const QByteArray& line : lines.mid(heading.count('\n') + 11)) {
                bool numeric = false;
                const double value = line.split('\t').value(0).trimmed().toDouble(&numeric);
                if (numeric)
                    numbers << value;
            }
            QCOMPARE(numbers.size(), qMax(0, points() - 1));
            for (int k = 1; k < points(); ++k)
                QCOMPARE(numbers.at(k - 1), double(reading(k)));
        }
        // A download: each reading in the store in its columns, ten to a group, then the empty
        // memory locations.
        if (options.mode == SimulatorOptions::Mode::Download) {
            const QStringList n = counts.split(QRegularExpression("\\D+"), Qt::SkipEmptyParts);
            QString store;
            for (int k = 1; k <= n.value(0).toInt(); ++k) {
                store += QStringLiteral("\r\n\t#%1\t%2\tDEG F\r\n")
                             .arg(k, 3, 10, QLatin1Char('0'))
                             .arg(oracle.temperatureAt(k - 1));
                if (k % 10 == 0 && k < n.value(0).toInt())
                    store += QStringLiteral("\r\n\r\n\t\r\n");
            }
            for (int k = 0; k < n.value(1).toInt(); ++k)
                store += QStringLiteral("\r\nEMPTY LOCATION - NO DATA.\r\n");
            QCOMPARE(a.store.text(), store);
        }
    }
};
TALAVEX_TEST(TestEndToEnd)
#include "TestEndToEnd.moc"

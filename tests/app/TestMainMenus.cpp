#include "app/CommandLine.h"
#include "app/ProgramFolder.h"
#include "support/AppRig.h"
#include "support/Rows.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QTest>

using Axis = ChartSurface::Axis;
namespace {
// The factory settings, one entry a line.
QStringList factory()
{
    return { "100", "0", "60", "0", "0", "0", "TEMPERATURE", "SECONDS", "1", "0", "1", "100", "0",
        "85", "25", "1", "0", "1", "0", "1", "300", "0", "1" };
}
QByteArray linesOf(const QStringList& lines) // each ended by CR LF
{
    return (lines.join("\r\n") + "\r\n").toLatin1();
}
QStringList with(QStringList lines, const QStringList& entries) // "entry=text" put in the lines
{
    for (const QString& e : entries)
        lines[e.section('=', 0, 0).toInt()] = e.section('=', 1);
    return lines;
}
// The application with an editor of its own on a PATH of its own.
struct FilesRig : AppRig {
    FilesRig()
    {
        QDir().mkpath(dir.filePath("bin"));
        testfiles::writeAll(dir.filePath("bin/gedit"), "#!/bin/sh\n");
        QFile::setPermissions(dir.filePath("bin/gedit"), QFileDevice::Permissions(0x7700));
        app().files.editors = TextEditorLocator({ {}, {}, { dir.filePath("bin") }, {} });
    }
    QString started() const // the programs started, with their arguments
    {
        QStringList all;
        for (const auto& s : launcher.starts)
            all << s.program + ' ' + s.arguments.join('|');
        return all.join(';').replace(dir.path(), "$D");
    }
};
} // namespace

// The main window's own commands: the settings file, the data files menu, the memory check.
class TestMainMenus : public QObject {
    Q_OBJECT
private slots:
    // Every entry applied at start and written back at exit; CREATE SETTINGS FILE: the live state.
    void restart()
    {
        const QStringList changed { "250", "-20", "120", "10", "spare A", "spare B", "DEG C",
            "MINUTES", "0", "1", "0", "300", "-10", "200", "40", "0", "1", "0", "2", "2", "300",
            "1", "0" };
        AppRig rig;
        Application& a = rig.app();
        const QString path = rig.dir.filePath("Settings.dat");
        testfiles::writeAll(path, linesOf(changed));
        a.controller.Form_Load();
        QCOMPARE(QList<double>({ rig.chart.axisMax(Axis::Y), rig.chart.axisMin(Axis::Y),
                     rig.chart.axisMax(Axis::X), rig.chart.axisMin(Axis::X) }),
            QList<double>({ 250, -20, 120, 10 }));
        QCOMPARE(rig.chart.axisTitle(Axis::Y) + '|' + rig.chart.axisTitle(Axis::X),
            QStringLiteral("DEG C|MINUTES"));
        QVERIFY(a.main.mnuAutoCompressed.checked() && !a.main.mnuRealTimeGraphOn.checked()
            && a.main.mnuScopeChart.checked() && a.main.mnuDispLimits.checked()
            && !a.main.mnuAutoScaleYAxis.checked());
        QCOMPARE(QList<int>({ a.state.CommPortNumber, a.state.TimeUnitIndex, rig.port.portNumber(),
                     a.bar.GetMaxTemp(), a.bar.GetLowLimit() }),
            QList<int>({ 2, 1, 2, 300, 40 }));
        QVERIFY(a.graphSettingsModel.txtMaxY.caption() == "250" && !a.graphSettings.loaded());
        QVERIFY(a.bar.IsAlarmOn()); // entry 15 acts once the bar is shown
        a.tempBarWindow.mnuViewTempBar_Click();
        QVERIFY(!a.bar.IsAlarmOn() && a.state.TempBarVisible && a.main.mnuViewTempBar.checked());
        a.controller.Shutdown();
        QCOMPARE(testfiles::readAll(path), linesOf(changed));
        rig.chart.setAxisMax(Axis::Y, 180);
        a.controller.mnuRealTimeGraphOn_Click();
        a.state.CommPortNumber = 3;
        a.controller.Shutdown(); // the program shuts down once
        QCOMPARE(testfiles::readAll(path), linesOf(changed));
        a.controller.mnuCreateSettingsFile_Click();
        QCOMPARE(
            testfiles::readAll(path), linesOf(with(changed, { "0=180", "9=0", "10=1", "19=3" })));
    }

    // Any file: read by the rules, saved whole. None or unreadable: the factory file, else built
    // in.
    void hostileFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("facts"); // Y axis max, port, "entry=text" saved next
        QByteArray garbage;
        for (int i = 0; i < 4096; ++i)
            garbage += char((i * 7919) & 0xff);
        auto with = [](const QStringList& entries) { return linesOf(::with(factory(), entries)); };
        auto row = [](const char* name, const QByteArray& content, const char* facts) {
            QTest::newRow(name) << content << QString(facts).split(' ');
        };
        row("binary garbage", garbage, "0 1");
        row("one 10 MB line", QByteArray(10 * 1024 * 1024, '7'), "0 1 6=SHIPPED");
        row("thirty lines", with({ "0=90" }) + QByteArray("2\r\n").repeated(7), "90 1 20=300 22=1");
        row("five lines, the rest kept", linesOf({ "70", "10", "30", "0", "x" }),
            "70 1 2=30 4=x 13=85");
        row("LF only", "70\n10\n", "70 1 1=10 7=SECONDS");
        row("words", with({ "0=hot", "2=12abc", "19=COM2" }), "0 1 0=100 2=12 19=1");
        row("port two", with({ "19=2" }), "100 2 19=2");
        row("a time unit beyond 16 bits ends the apply before the port",
            with({ "16=99999", "19=2" }), "100 1 19=1");
        row("switches, the fixed entry, spare entries",
            with({ "4=keep", "8=yes", "20=512", "21=", "22=yes", "16=7" }),
            "100 1 4=keep 8=0 20=300 21=0 22=0 16=7");
        row("an axis is never saved empty", with({ "0=50", "1=50", "2=-7", "3=-7" }),
            "50 1 0=150 1=50 2=93 3=-7");
        row("no file: the factory file", "<none>", "100 1 6=SHIPPED");
        row("a folder of that name: the factory file", "<folder>", "100 1 6=SHIPPED");
        row("neither: the copy built in", "<bare>", "100 1 6=TEMPERATURE");
    }
    void hostileFiles()
    {
        QFETCH(QByteArray, content);
        QFETCH(QStringList, facts);
        AppRig rig;
        Application& a = rig.app();
        QStringList shipped = factory();
        shipped[6] = "SHIPPED";
        if (content != "<bare>")
            testfiles::writeAll(rig.dir.filePath("DefaultSettings.dat"), linesOf(shipped));
        a.settings.LoadSettings(true); // the factory settings are in force when it is read
        rig.chart.setAxisMax(Axis::Y, 7);
        if (content == "<folder>")
            QDir(rig.dir.path()).mkdir(QStringLiteral("Settings.dat"));
        else if (!content.startsWith('<'))
            testfiles::writeAll(rig.dir.filePath("Settings.dat"), content);
        QVERIFY(a.settings.LoadSettings(false));
        QCOMPARE(QString::number(rig.chart.axisMax(Axis::Y)), facts[0]);
        QCOMPARE(QString::number(a.state.CommPortNumber), facts[1]);
        QDir(rig.dir.path()).rmdir(QStringLiteral("Settings.dat"));
        QVERIFY(a.settings.SaveSettings());
        QStringList lines
            = QString::fromLatin1(testfiles::readAll(rig.dir.filePath("Settings.dat")))
                  .split(QStringLiteral("\r\n"));
        QCOMPARE(lines.size(), 24);
        QVERIFY(lines.takeLast().isEmpty()); // the last line ended too
        for (const QString& line : lines)
            QVERIFY(line.size() <= 1024);
        for (const QString& fact : facts.mid(2))
            QCOMPARE(
                fact.section('=', 0, 0) + '=' + lines.at(fact.section('=', 0, 0).toInt()), fact);
    }
    // The memory check, the plotting modes, the command line; the port closed before the save.
    void mainWindow()
    {
        for (const auto& [bytes, warns] :
            { std::pair { 16000000ull, false }, std::pair { 15000000ull, true } }) {
            AppRig rig;
            rig.systemInfo.totalMemory = bytes;
            rig.app().controller.CheckMemory();
            QCOMPARE(rig.prompter.titles(),
                warns ? QStringList { "WARNING - SYSTEM'S RAM BELOW REQUIREMENTS" }
                      : QStringList());
        }
        for (const QString clicks : { "SC", "CS", "SS", "CC" }) { // strip chart, compressed
            AppRig rig;
            MainWindowModel& m = rig.app().main;
            m.mnuRealTimeGraphOn.setChecked(false);
            for (const QChar c : clicks)
                c == 'S' ? rig.app().controller.mnuRealTimeGraphOn_Click()
                         : rig.app().controller.mnuAutoCompressed_Click();
            const bool twice = clicks[0] == clicks[1];
            QCOMPARE(m.mnuRealTimeGraphOn.checked(), !twice && clicks[1] == 'S');
            QCOMPARE(m.mnuAutoCompressed.checked(), !twice && clicks[1] == 'C');
        }
        for (const QString row : { ">0 1 0 ", "--demo --no-splash --home>1 0 1 ",
                 "--port /dev/ttyUSB0 stray>0 1 0 /dev/ttyUSB0",
                 "--port=/dev/pts/3>0 1 0 /dev/pts/3", "--port>error", "--port --demo>error",
                 "--fast>error", "-h>error" }) {
            const CommandLine c = CommandLine::parse(
                ("talavex " + row.section('>', 0, 0)).split(' ', Qt::SkipEmptyParts));
            const QString parsed
                = QStringLiteral("%1 %2 %3 ").arg(c.demo).arg(c.splash).arg(c.home) + c.portDevice;
            QCOMPARE(c.error.isEmpty() ? parsed : QStringLiteral("error"), row.section('>', 1));
        }
        AppRig rig;
        rig.app().controller.Form_Load();
        rig.app().main.mnuAutoScaleYAxis.setChecked(true);
        rig.app().controller.mnuAutoScaleYAxis_Click(); // its entry follows at once
        QVERIFY(!rig.app().main.mnuAutoScaleYAxis.checked()
            && rig.app().state.SettingsValues.line(17) == "0");
        rig.startSensing();
        bool savedBeforeClose = true;
        rig.port.onClose
            = [&] { savedBeforeClose = QFile::exists(rig.dir.filePath("Settings.dat")); };
        rig.app().controller.Shutdown();
        QVERIFY(!rig.port.isOpen() && !savedBeforeClose);
        QVERIFY(QFile::exists(rig.dir.filePath("Settings.dat")));
        const QString home
            = ProgramFolder::inHome(rig.dir.path()); // made and given the factory file
        QVERIFY(ProgramFolder::prepare(home, rig.dir.filePath("Settings.dat"), nullptr));
        QCOMPARE(testfiles::readAll(home + "/DefaultSettings.dat"),
            testfiles::readAll(rig.dir.filePath("Settings.dat")));
    }
    // The data files menu: the editor shows a file; one not found is asked for, then kept.
    void editor_data()
    {
        // commands | the chooser's answer | started | boxes
        rows::add({ "load|/my runs/\"q\" 'x'; rm y.txt|$D/bin/gedit /my runs/\"q\" 'x'; rm y.txt|",
            "load||$D/bin/gedit |", // cancelled: the editor alone
            "none new|/opt/my editor|/opt/my editor $D/LAST_OBTAINED_DATA_PTS.dat|CANNOT FIND "
            "NOTEPAD.",
            "none new|||CANNOT FIND NOTEPAD.;INVALID FILENAME RECEIVED",
            "new another points||$D/bin/gedit $D/LAST_OBTAINED_DATA_PTS.dat;$D/bin/gedit "
            "$D/DPStorage.dat|" });
    }
    void editor()
    {
        QFETCH(QString, row);
        FilesRig rig;
        rig.prompter.files.push_back(row.section('|', 1, 1));
        for (const QString& step : row.section('|', 0, 0).split(' ')) {
            if (step == "none")
                QFile::remove(rig.dir.filePath("bin/gedit"));
            else if (step == "another") // comes before gedit among the common editors
                QFile::copy(
                    rig.dir.filePath("bin/gedit"), rig.dir.filePath("bin/gnome-text-editor"));
            else if (step == "load")
                rig.app().files.mnuLoadFile_Click();
            else if (step == "new")
                rig.app().files.mnuNewAcquiredDataPoints_Click();
            else
                rig.app().files.mnuDownloadedDataPoints_Click();
        }
        QCOMPARE(rig.started(), row.section('|', 2, 2));
        QCOMPARE(rig.prompter.titles().join(';'), row.section('|', 3, 3));
    }
    // The downloaded points' view loads the kept file; a text stamp marks the data on hand.
    void storeAndStamp()
    {
        FilesRig rig;
        Application& a = rig.app();
        const QString kept = rig.dir.filePath("DPStorage.dat");
        testfiles::writeAll(kept, "\r\n\t#001\t70\r\n\r\n");
        a.state.DownloadFromWindow = true;
        a.files.mnuDownloadedDataPoints_Click();
        QVERIFY(a.store.isEmpty());
        a.state.DownloadFromWindow = false;
        a.files.mnuDownloadedDataPoints_Click();
        QCOMPARE(a.store.text(), QStringLiteral("\t#001\t70\r\n"));
        QStringList stamps;
        for (const char* answer : { "A\r\nB", "", "<cancel>", "OVEN 2" }) {
            a.state.TextStamp = QStringLiteral("\x07old");
            rig.prompter.inputs.push_back(answer == QLatin1String("<cancel>")
                    ? std::nullopt
                    : std::optional<QString>(answer));
            a.files.mnuTextStamp_Click();
            stamps << a.state.TextStamp;
        }
        QCOMPARE(stamps.join('|'), QStringLiteral("\aAB|||\aOVEN 2"));
        QCOMPARE(a.store.text(), QStringLiteral("\t#001\t70\r\n\r\n\aAB\r\n\r\n\aOVEN 2\r\n"));
        QFile big(kept);
        QVERIFY(big.resize(64 * 1024 * 1024 + 1));
        a.files.mnuDownloadedDataPoints_Click();
        QVERIFY(a.store.text().endsWith(QStringLiteral("OVEN 2\r\n")));
        const QString text = rig.prompter.messages().back().text;
        QVERIFY2(rig.prompter.titles().last() == "FILE TOO LARGE" && text.contains(kept)
                && text.contains("64 MB"),
            qPrintable(text));
    }
};
TALAVEX_TEST(TestMainMenus)
#include "TestMainMenus.moc"

#include "support/AppRig.h"
#include "support/SettingsLines.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QTest>

using Axis = ChartSurface::Axis;

namespace {
using settingslines::factory;
using settingslines::linesOf;
using testfiles::readAll;
void writeBytes(const QString& path, const QByteArray& bytes) { settingslines::write(path, bytes); }
// A file in which every entry differs from the factory settings and is one the program keeps.
QStringList everyEntryChanged()
{
    return { "250", "-20", "120", "10", "spare A", "spare B", "DEG C", "MINUTES", "0", "1", "0",
        "300", "-10", "200", "40", "0", "1", "0", "2", "2", "300", "1", "0" };
}
} // namespace

class TestSettingsFileIO : public QObject {
    Q_OBJECT
private slots:
    void everyEntrySurvivesARestart()
    {
        AppRig first;
        writeBytes(first.dir.filePath("Settings.dat"), linesOf(everyEntryChanged()));
        first.app().controller.Form_Load();
        QCOMPARE(first.chart.axisMax(Axis::Y), 250.0);
        QCOMPARE(first.chart.axisMin(Axis::X), 10.0);
        QCOMPARE(first.chart.axisTitle(Axis::Y), QStringLiteral("DEG C"));
        QCOMPARE(first.chart.axisTitle(Axis::X), QStringLiteral("MINUTES"));
        QVERIFY(first.app().main.mnuAutoCompressed.checked());
        QVERIFY(!first.app().main.mnuRealTimeGraphOn.checked());
        QVERIFY(first.app().main.mnuScopeChart.checked());
        QVERIFY(first.app().main.mnuDispLimits.checked());
        QVERIFY(!first.app().main.mnuAutoScaleYAxis.checked());
        QCOMPARE(first.app().state.CommPortNumber, qint16(2));
        QCOMPARE(first.app().state.TimeUnitIndex, qint16(1));
        first.app().controller.Shutdown();
        QCOMPARE(readAll(first.dir.filePath("Settings.dat")), linesOf(everyEntryChanged()));
    }

    void createSettingsFileWritesTheLiveState()
    {
        AppRig rig;
        rig.app().controller.Form_Load();
        rig.chart.setAxisMax(Axis::Y, 180);
        rig.app().main.mnuAutoCompressed.setChecked(true);
        rig.app().main.mnuRealTimeGraphOn.setChecked(false);
        rig.app().state.CommPortNumber = 2;
        rig.app().controller.mnuCreateSettingsFile_Click();
        QStringList expected = factory();
        expected[0] = "180";
        expected[9] = "1";
        expected[10] = "0";
        expected[19] = "2";
        QCOMPARE(readAll(rig.dir.filePath("Settings.dat")), linesOf(expected));
    }

    void hostileFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<double>("yMax");
        QTest::addColumn<QString>("yTitle");
        QTest::addColumn<int>("port");
        QByteArray garbage;
        for (int i = 0; i < 4096; ++i)
            garbage += char((i * 7919) & 0xff);
        QTest::newRow("binary garbage") << garbage << 0.0 << "<any>" << 1;
        QTest::newRow("one 10 MB line")
            << QByteArray(10 * 1024 * 1024, '7') << 0.0 << "TEMPERATURE" << 1;
        QStringList thirty = factory();
        thirty[0] = "90";
        for (int i = 0; i < 7; ++i)
            thirty << "2";
        QTest::newRow("thirty lines") << linesOf(thirty) << 90.0 << "TEMPERATURE" << 1;
        QTest::newRow("five lines")
            << linesOf({ "70", "10", "30", "0", "x" }) << 70.0 << "TEMPERATURE" << 1;
        QStringList words = factory();
        words[0] = "hot";
        words[2] = "12abc";
        words[19] = "COM2";
        QTest::newRow("non-numeric entries") << linesOf(words) << 0.0 << "TEMPERATURE" << 1;
        QStringList port = factory();
        port[19] = "2";
        QTest::newRow("port two") << linesOf(port) << 100.0 << "TEMPERATURE" << 2;
    }
    void hostileFiles()
    {
        QFETCH(QByteArray, content);
        QFETCH(double, yMax);
        QFETCH(QString, yTitle);
        QFETCH(int, port);
        AppRig rig;
        Application& a = rig.app();
        // The factory settings are in force when the file is read.
        a.settings.LoadSettings(true);
        writeBytes(rig.dir.filePath("Settings.dat"), content);
        QVERIFY(a.settings.LoadSettings(false));
        QCOMPARE(rig.chart.axisMax(Axis::Y), yMax);
        if (yTitle != QLatin1String("<any>"))
            QCOMPARE(rig.chart.axisTitle(Axis::Y), yTitle);
        QCOMPARE(int(a.state.CommPortNumber), port);
        for (const QString& entry : a.state.SettingsValues.lines())
            QVERIFY(entry.size() <= 1024);
        // Whatever was read, the next save is a whole, well-formed file.
        QVERIFY(a.settings.SaveSettings());
        const QByteArray saved = readAll(rig.dir.filePath("Settings.dat"));
        QCOMPARE(saved.count("\r\n"), 23);
        QVERIFY(saved.endsWith("\r\n"));
        QStringList lines = QString::fromLatin1(saved).split(QStringLiteral("\r\n"));
        QCOMPARE(lines.at(20), QStringLiteral("300"));
        QVERIFY(lines.at(8) == QLatin1String("0") || lines.at(8) == QLatin1String("1"));
        QVERIFY(lines.at(0) != lines.at(1));
    }

    void shortFileKeepsTheRest()
    {
        AppRig rig;
        Application& a = rig.app();
        a.settings.LoadSettings(true);
        writeBytes(rig.dir.filePath("Settings.dat"), linesOf({ "70", "10", "30", "0", "x" }));
        a.settings.LoadSettings(false);
        QCOMPARE(a.state.SettingsValues.spare4.text, QStringLiteral("x"));
        QCOMPARE(a.state.SettingsValues.highAlarmLimit.text, QStringLiteral("85"));
        QCOMPARE(a.state.SettingsValues.yAxisTitle.text, QStringLiteral("TEMPERATURE"));
        QCOMPARE(rig.chart.axisMax(Axis::X), 30.0);
    }

    void missingOrUnreadableUsesTheDefaults_data()
    {
        QTest::addColumn<bool>("folderInTheWay");
        QTest::newRow("missing") << false;
        QTest::newRow("a folder of that name") << true;
    }
    void missingOrUnreadableUsesTheDefaults()
    {
        QFETCH(bool, folderInTheWay);
        AppRig rig;
        if (folderInTheWay)
            QDir(rig.dir.path()).mkdir(QStringLiteral("Settings.dat"));
        QStringList defaults = factory();
        defaults[6] = "SHIPPED";
        writeBytes(rig.dir.filePath("DefaultSettings.dat"), linesOf(defaults));
        QVERIFY(rig.app().settings.LoadSettings(false));
        QCOMPARE(rig.chart.axisTitle(Axis::Y), QStringLiteral("SHIPPED"));
    }

    void shippedDefaultsMatchTheBuiltInOnes()
    {
        const QString source = qEnvironmentVariable("TALAVEX_SOURCE_DIR");
        QVERIFY(!source.isEmpty());
        QCOMPARE(
            readAll(source + QStringLiteral("/resources/DefaultSettings.dat")), linesOf(factory()));
    }

    void stepsRunInOrder_data()
    {
        QTest::addColumn<QString>("unit");
        QTest::addColumn<int>("portAfter");
        QTest::addColumn<QString>("port");
        QTest::newRow("all steps, port last") << "1" << 2 << "2";
        QTest::newRow("time unit fails: the port is left") << "99999" << 1 << "2";
        QTest::newRow("port that is no number is left") << "1" << 1 << "two";
    }
    void stepsRunInOrder()
    {
        QFETCH(QString, unit);
        QFETCH(QString, port);
        QFETCH(int, portAfter);
        AppRig rig;
        SettingsFileIO& io = rig.app().settings;
        QStringList ran;
        auto chartTimeUnit = io.steps.applyTimeUnit;
        io.steps.applyChartAxes = [&](Settings&) { ran << "axes"; };
        io.steps.applyChartFlags = [&](Settings& s) {
            ran << "flags";
            s.yAutoRange.text = QStringLiteral("maybe");
        };
        io.steps.applyTempBar = [&](Settings&) { ran << "bar"; };
        io.steps.applyTimeUnit = [&](Settings& s) {
            ran << "unit";
            return chartTimeUnit(s);
        };
        auto& v = rig.app().state.SettingsValues;
        v.timeUnit.text = unit;
        v.commPort.text = port;
        v.limitLinesShown.text = QStringLiteral("1");
        io.ApplySettings();
        QCOMPARE(ran, QStringList({ "axes", "flags", "bar", "unit" }));
        QCOMPARE(int(rig.app().state.CommPortNumber), portAfter);
        // Whatever the chart's step leaves, the two flags end as "1" or "0".
        QCOMPARE(v.yAutoRange.text, QStringLiteral("0"));
        QCOMPARE(v.limitLinesShown.text, QStringLiteral("1"));
    }

    void gatherRulesHoldOverTheSteps()
    {
        AppRig rig;
        SettingsFileIO& io = rig.app().settings;
        io.steps.gatherChart = [](Settings& s) {
            s.yAxisMax.text = s.yAxisMin.text = QStringLiteral("50");
            s.xAxisMax.text = s.xAxisMin.text = QStringLiteral("-7");
        };
        auto& v = rig.app().state.SettingsValues;
        v.tempBarMax.text = QStringLiteral("from bar");
        v.setLine(20, QStringLiteral("512"));
        v.audibleAlarms.text = QStringLiteral("yes");
        v.spare4.text = QStringLiteral("left");
        io.GatherSettings();
        QCOMPARE(v.yAxisMax.text, QStringLiteral("150"));
        QCOMPARE(v.xAxisMax.text, QStringLiteral("93"));
        QCOMPARE(v.tempBarMax.text, QStringLiteral("from bar"));
        QCOMPARE(v.line(20), QStringLiteral("300"));
        QCOMPARE(v.audibleAlarms.text, QStringLiteral("0"));
        QCOMPARE(v.spare4.text, QStringLiteral("left"));
    }
};
TALAVEX_TEST(TestSettingsFileIO)
#include "TestSettingsFileIO.moc"

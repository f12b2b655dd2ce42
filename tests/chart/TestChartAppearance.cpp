#include "support/AppRig.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "chart/ChartAppearance.h"

#include <QFile>
#include <QTest>

namespace {
using Color = ChartSurface::Color;
using Scheme = ChartAppearance::Scheme;
using Rgb = QList<qint64>;

// The screen colours as red, green, blue, written apart from the stored values.
qint64 rgb(int r, int g, int b) { return (qint64(r) << 16) | (g << 8) | b; }
const Rgb Standard { rgb(173, 216, 230), rgb(255, 255, 255), 0, 0, 0, 0, rgb(128, 64, 0) };
const Rgb Scope { 0, rgb(0, 147, 0), rgb(255, 255, 0), rgb(255, 255, 0), rgb(177, 255, 100),
    rgb(177, 255, 100), rgb(255, 255, 74) };
const Rgb Plain { rgb(255, 255, 255), rgb(255, 255, 255), 0, 0, 0, 0, rgb(255, 0, 0) };

Rgb colors(const ChartSurface& chart)
{
    Rgb out;
    for (int i = 0; i < ChartSurface::ColorCount; ++i)
        out << chart.color(Color(i));
    return out;
}

// Which items are checked, as "S", "O", "P" in menu order.
QString checks(const MainWindowModel& m)
{
    QString out;
    if (m.mnuStandardChart.checked())
        out += 'S';
    if (m.mnuScopeChart.checked())
        out += 'O';
    if (m.mnuPlainChart.checked())
        out += 'P';
    return out;
}

void click(Application& a, QChar item)
{
    if (item == 'S')
        a.appearance.mnuStandardChart_Click();
    else if (item == 'O')
        a.appearance.mnuScopeChart_Click();
    else
        a.appearance.mnuPlainChart_Click();
}

} // namespace

class TestChartAppearance : public QObject {
    Q_OBJECT
private slots:
    void storedValuesAreBlueGreenRed_data()
    {
        QTest::addColumn<int>("scheme");
        QTest::addColumn<Rgb>("screen");
        QTest::newRow("standard") << int(Scheme::Standard) << Standard;
        QTest::newRow("scope") << int(Scheme::Scope) << Scope;
        QTest::newRow("plain") << int(Scheme::Plain) << Plain;
    }
    void storedValuesAreBlueGreenRed()
    {
        QFETCH(int, scheme);
        QFETCH(Rgb, screen);
        const auto& stored = ChartAppearance::storedValues(Scheme(scheme));
        for (int i = 0; i < ChartSurface::ColorCount; ++i) {
            const quint32 v = stored[size_t(i)];
            // value = blue * 65536 + green * 256 + red
            QCOMPARE(qint64(v & 0xFF), (screen[i] >> 16) & 0xFF);
            QCOMPARE(qint64((v >> 8) & 0xFF), (screen[i] >> 8) & 0xFF);
            QCOMPARE(qint64(v >> 16), screen[i] & 0xFF);
        }
    }

    void designTimeIsStandard()
    {
        AppRig rig;
        QCOMPARE(checks(rig.app().main), QStringLiteral("S"));
        QCOMPARE(colors(rig.chart), Standard);
    }

    void clicks_data()
    {
        QTest::addColumn<QString>("clicks");
        QTest::addColumn<Rgb>("screen");
        QTest::addColumn<QString>("checked");
        QTest::addColumn<int>("redraws");
        QTest::newRow("standard while checked") << "S" << Standard << "S" << 0;
        QTest::newRow("scope") << "O" << Scope << "O" << 1;
        QTest::newRow("plain") << "P" << Plain << "P" << 1;
        QTest::newRow("scope twice falls back") << "OO" << Standard << "S" << 2;
        QTest::newRow("plain twice falls back") << "PP" << Standard << "S" << 2;
        QTest::newRow("scope then plain") << "OP" << Plain << "P" << 2;
        QTest::newRow("plain then scope") << "PO" << Scope << "O" << 2;
        QTest::newRow("scope then standard") << "OS" << Standard << "S" << 2;
        QTest::newRow("scope, standard twice") << "OSS" << Standard << "S" << 2;
    }
    void clicks()
    {
        QFETCH(QString, clicks);
        QFETCH(QString, checked);
        QFETCH(Rgb, screen);
        QFETCH(int, redraws);
        AppRig rig;
        Application& a = rig.app();
        const int before = rig.chart.redrawCount();
        for (QChar item : clicks)
            click(a, item);
        QCOMPARE(checks(a.main), checked);
        QCOMPARE(colors(rig.chart), screen);
        QCOMPARE(rig.chart.redrawCount() - before, redraws);
        QCOMPARE(rig.chart.batchDepth(), 0);
    }

    void settingsEntryApplied_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<Rgb>("screen");
        QTest::addColumn<QString>("checked");
        // The chart shows the plain scheme before each apply.
        QTest::newRow("0 standard") << "0" << Standard << "S";
        QTest::newRow("1 plain, already shown") << "1" << Plain << "P";
        QTest::newRow("2 scope") << "2" << Scope << "O";
        QTest::newRow("3 leaves it") << "3" << Plain << "P";
        QTest::newRow("empty leaves it") << "" << Plain << "P";
        QTest::newRow("word leaves it") << "SCOPE" << Plain << "P";
    }
    void settingsEntryApplied()
    {
        QFETCH(QString, entry);
        QFETCH(QString, checked);
        QFETCH(Rgb, screen);
        AppRig rig;
        Application& a = rig.app();
        a.appearance.mnuPlainChart_Click();
        a.state.SettingsValues.appearance.text = entry;
        a.settings.ApplySettings();
        QCOMPARE(checks(a.main), checked);
        QCOMPARE(colors(rig.chart), screen);
    }

    void schemeSurvivesARestart_data()
    {
        QTest::addColumn<QString>("clicks");
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<Rgb>("screen");
        QTest::newRow("standard") << "OO" << QByteArray("0") << Standard;
        QTest::newRow("plain") << "P" << QByteArray("1") << Plain;
        QTest::newRow("scope") << "PO" << QByteArray("2") << Scope;
    }
    void schemeSurvivesARestart()
    {
        QFETCH(QString, clicks);
        QFETCH(QByteArray, entry);
        QFETCH(Rgb, screen);
        AppRig first;
        first.app().controller.Form_Load();
        for (QChar item : clicks)
            click(first.app(), item);
        first.app().controller.Shutdown();
        const QByteArray saved = testfiles::readAll(first.dir.filePath("Settings.dat"));
        QCOMPARE(saved.split('\n').value(18), entry + "\r");

        AppRig second;
        testfiles::writeAll(second.dir.filePath("Settings.dat"), saved);
        second.app().controller.Form_Load();
        QCOMPARE(colors(second.chart), screen);
        QCOMPARE(checks(second.app().main), checks(first.app().main));
    }
};
TALAVEX_TEST(TestChartAppearance)
#include "TestChartAppearance.moc"

#include "support/TestRegistry.h"

#include "base/MainWindowModel.h"
#include "chart/ChartAppearance.h"
#include "ui/QCustomPlotSurface.h"

#include <QTest>
#include <qcustomplot.h>

namespace {
using Scheme = ChartAppearance::Scheme;

QRgb screen(quint32 bgr) { return QRgb(Colors::fromBgr(bgr)) | 0xFF000000u; }
} // namespace

class TestChartAppearanceGui : public QObject {
    Q_OBJECT
private slots:
    void schemeReachesThePlot_data()
    {
        QTest::addColumn<QString>("clicks");
        QTest::addColumn<int>("scheme");
        QTest::newRow("standard") << "" << int(Scheme::Standard);
        QTest::newRow("scope") << "O" << int(Scheme::Scope);
        QTest::newRow("plain") << "P" << int(Scheme::Plain);
        QTest::newRow("scope back to standard") << "OO" << int(Scheme::Standard);
    }
    void schemeReachesThePlot()
    {
        QFETCH(QString, clicks);
        QFETCH(int, scheme);
        QCustomPlot plot;
        QCustomPlotSurface surface(plot);
        MainWindowModel main;
        const QColor high = surface.graph(2)->pen().color();
        const QColor low = surface.graph(3)->pen().color();
        const QColor marker = surface.marker()->pen().color();
        ChartAppearance look(surface, main);
        for (QChar c : clicks) {
            if (c == 'O')
                look.mnuScopeChart_Click();
            else
                look.mnuPlainChart_Click();
        }
        const auto& v = ChartAppearance::storedValues(Scheme(scheme));
        // The chart background shows in the corner, outside the axes.
        QCOMPARE(plot.toPixmap(200, 150).toImage().pixel(1, 1), screen(v[0]));
        QCOMPARE(plot.axisRect()->backgroundBrush().color().rgb(), screen(v[1]));
        QCOMPARE(plot.xAxis->basePen().color().rgb(), screen(v[2]));
        QCOMPARE(plot.yAxis->basePen().color().rgb(), screen(v[3]));
        QCOMPARE(plot.xAxis->grid()->pen().color().rgb(), screen(v[4]));
        QCOMPARE(plot.yAxis->grid()->pen().color().rgb(), screen(v[5]));
        QCOMPARE(surface.graph(1)->pen().color().rgb(), screen(v[6]));
        // The limit lines and the cursor keep their own colours.
        QCOMPARE(surface.graph(2)->pen().color(), high);
        QCOMPARE(surface.graph(3)->pen().color(), low);
        QCOMPARE(surface.marker()->pen().color(), marker);
    }
};
TALAVEX_TEST(TestChartAppearanceGui)
#include "TestChartAppearanceGui.moc"

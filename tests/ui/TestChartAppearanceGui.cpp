#include "support/TestRegistry.h"

#include "base/MainWindowModel.h"
#include "chart/ChartAppearance.h"
#include "ui/QCustomPlotSurface.h"

#include <QTest>
#include <algorithm>
#include <cmath>
#include <qcustomplot.h>

namespace {
using Scheme = ChartAppearance::Scheme;

QRgb screen(quint32 bgr) { return QRgb(Colors::fromBgr(bgr)) | 0xFF000000u; }

// The contrast ratio of two colours by their relative luminance: 1 (none) to 21.
double contrast(const QColor& a, const QColor& b)
{
    auto luminance = [](const QColor& c) {
        auto linear = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
    };
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
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
        // The limit lines and the cursor keep their own colours, and each limit line stands out
        // from the plot's background under every scheme.
        QCOMPARE(surface.graph(2)->pen().color(), high);
        QCOMPARE(surface.graph(3)->pen().color(), low);
        QCOMPARE(surface.marker()->pen().color(), marker);
        for (const QColor& line : { high, low })
            QVERIFY(contrast(line, plot.axisRect()->backgroundBrush().color()) >= 3);
    }
};
TALAVEX_TEST(TestChartAppearanceGui)
#include "TestChartAppearanceGui.moc"

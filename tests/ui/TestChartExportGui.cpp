#include "support/PlotWindowApp.h"
#include "support/TestRegistry.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

namespace {
using Axis = ChartSurface::Axis;

// A rising line of readings on the real chart.
struct ExportApp : PlotWindowApp {
    ExportApp()
    {
        surface.setPointCount(1, 21);
        for (int i = 1; i <= 20; ++i) {
            surface.setX(1, i, i);
            surface.setY(1, i, 20 + 3 * i);
        }
        surface.setAxisMin(Axis::X, 0);
        surface.setAxisMax(Axis::X, 30);
        plot->replot(QCustomPlot::rpImmediateRefresh);
    }
    void exportTo(const QString& path)
    {
        prompter.files.push_back(path);
        window.findChild<QAction*>(QStringLiteral("mnuExportChart"))->trigger();
    }
    QStringList files() const
    {
        return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    }
};

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class TestChartExportGui : public QObject {
    Q_OBJECT
private slots:
    void eachFormatIsAWholeFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("png") << "chart.png" << QByteArray("\x89PNG\r\n\x1a\n");
        QTest::newRow("pdf") << "chart.pdf" << QByteArray("%PDF-");
        QTest::newRow("svg") << "chart.svg" << QByteArray("<?xml");
    }
    void eachFormatIsAWholeFile()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, start);
        ExportApp a;
        const QString path = QDir(a.dir.path()).filePath(name);
        a.exportTo(path);
        QVERIFY2(a.prompter.messages().empty(),
            qPrintable(a.prompter.messages().empty() ? QString() : a.prompter.messages()[0].text));
        const QByteArray bytes = contents(path);
        QVERIFY(bytes.startsWith(start));
        // Nothing left beside it.
        QCOMPARE(a.files(), QStringList { name });
        if (name.endsWith(QLatin1String(".png"))) {
            const QImage image = QImage::fromData(bytes, "PNG");
            QCOMPARE(image.size(), a.plot->size());
        } else if (name.endsWith(QLatin1String(".pdf"))) {
            QVERIFY(bytes.trimmed().endsWith("%%EOF"));
            QVERIFY(bytes.contains("/Type /Page"));
        } else {
            QVERIFY(bytes.contains("<svg"));
            QVERIFY(bytes.trimmed().endsWith("</svg>"));
            // The chart's own text is in the drawing.
            QVERIFY(bytes.contains(a.surface.axisTitle(Axis::X).toUtf8()));
        }
    }

    void cancelWritesNothing()
    {
        ExportApp a;
        a.exportTo(QString());
        QVERIFY(a.files().isEmpty());
        QVERIFY(a.prompter.messages().empty());
    }
};
TALAVEX_TEST(TestChartExportGui)
#include "TestChartExportGui.moc"

#include "ChartImageExport.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QSvgGenerator>
#include <qcustomplot.h>

namespace {
constexpr int ScreenDpi = 96;

// Draws the plot at its screen size onto a vector device.
bool drawVector(QCustomPlot& plot, QPaintDevice& device, const QSize& size)
{
    QCPPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setMode(QCPPainter::pmVectorized);
    painter.setMode(QCPPainter::pmNoCaching);
    plot.toPainter(&painter, size.width(), size.height());
    return painter.end();
}
} // namespace

ChartImageExport::ChartImageExport(QCustomPlot& plot, QObject* parent)
    : QObject(parent)
    , plot_(plot)
{
}

bool ChartImageExport::writeImage(const QString& path, Format format, QString* why)
{
    const QSize size = plot_.size().expandedTo(QSize(320, 240));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (why)
            *why = file.errorString();
        return false;
    }
    bool drawn = false;
    switch (format) {
    case Format::Png: {
        const QPixmap picture = plot_.toPixmap(size.width(), size.height());
        drawn = !picture.isNull() && picture.save(&file, "PNG");
        break;
    }
    case Format::Pdf: {
        QPdfWriter pdf(&file);
        pdf.setCreator(QStringLiteral("TALAVEX"));
        pdf.setTitle(plot_.window()->windowTitle());
        pdf.setResolution(ScreenDpi);
        const QSizeF points = QSizeF(size) * 72.0 / ScreenDpi;
        pdf.setPageLayout(QPageLayout(
            QPageSize(points, QPageSize::Point), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
        drawn = drawVector(plot_, pdf, size);
        break;
    }
    case Format::Svg: {
        QSvgGenerator svg;
        svg.setOutputDevice(&file);
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setResolution(ScreenDpi);
        svg.setTitle(QStringLiteral("TALAVEX chart"));
        drawn = drawVector(plot_, svg, size);
        break;
    }
    }
    if (!drawn) {
        file.cancelWriting();
        if (why)
            *why = file.error() != QFileDevice::NoError
                ? file.errorString()
                : QStringLiteral("The chart could not be drawn.");
        return false;
    }
    if (!file.commit()) {
        if (why)
            *why = file.errorString();
        return false;
    }
    return true;
}

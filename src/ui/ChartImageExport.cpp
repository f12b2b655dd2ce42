#include "ChartImageExport.h"

#include "base/WholeFile.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QPixmap>
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
    // Drawn in memory first, then written as one whole file.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bool drawn = false;
    switch (format) {
    case Format::Png: {
        const QPixmap picture = plot_.toPixmap(size.width(), size.height());
        drawn = !picture.isNull() && picture.save(&buffer, "PNG");
        break;
    }
    case Format::Pdf: {
        QPdfWriter pdf(&buffer);
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
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setResolution(ScreenDpi);
        svg.setTitle(QStringLiteral("TALAVEX chart"));
        drawn = drawVector(plot_, svg, size);
        break;
    }
    }
    buffer.close();
    const WholeFile::Result written = drawn
        ? WholeFile::Write(path, bytes)
        : WholeFile::Result { false, QStringLiteral("The chart could not be drawn.") };
    if (!written && why)
        *why = written.reason;
    return written.ok;
}

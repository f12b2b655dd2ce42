#include "InMemoryChartSurface.h"

#include <utility>

InMemoryChartSurface::InMemoryChartSurface()
    : series_(3)
{
    x_.max = 60.0;
    y_.max = 100.0;
}

int InMemoryChartSurface::seriesCount() const { return int(series_.size()); }

void InMemoryChartSurface::setSeriesCount(int count)
{
    if (count < 0 || count == seriesCount())
        return;
    series_.resize(std::size_t(count));
    changed();
}

const InMemoryChartSurface::Series* InMemoryChartSurface::find(int series) const
{
    if (series < 1 || series > seriesCount())
        return nullptr;
    return &series_[std::size_t(series - 1)];
}

InMemoryChartSurface::Series* InMemoryChartSurface::find(int series)
{
    return const_cast<Series*>(std::as_const(*this).find(series));
}

int InMemoryChartSurface::pointCount(int series) const
{
    const Series* s = find(series);
    return s ? int(s->x.size()) : 0;
}

void InMemoryChartSurface::setPointCount(int series, int count)
{
    Series* s = find(series);
    if (!s || count < 0 || count == int(s->x.size()))
        return;
    s->x.resize(std::size_t(count), emptyValue_);
    s->y.resize(std::size_t(count), emptyValue_);
    changed();
}

double InMemoryChartSurface::x(int series, int point) const
{
    const Series* s = find(series);
    if (!s || point < 1 || point > int(s->x.size()))
        return emptyValue_;
    return s->x[std::size_t(point - 1)];
}

double InMemoryChartSurface::y(int series, int point) const
{
    const Series* s = find(series);
    if (!s || point < 1 || point > int(s->y.size()))
        return emptyValue_;
    return s->y[std::size_t(point - 1)];
}

void InMemoryChartSurface::setX(int series, int point, double value)
{
    Series* s = find(series);
    if (!s || point < 1 || point > int(s->x.size()))
        return;
    s->x[std::size_t(point - 1)] = value;
    changed();
}

void InMemoryChartSurface::setY(int series, int point, double value)
{
    Series* s = find(series);
    if (!s || point < 1 || point > int(s->y.size()))
        return;
    s->y[std::size_t(point - 1)] = value;
    changed();
}

double InMemoryChartSurface::emptyPointValue() const { return emptyValue_; }

void InMemoryChartSurface::setEmptyPointValue(double value)
{
    if (value == emptyValue_)
        return;
    emptyValue_ = value;
    changed();
}

bool InMemoryChartSurface::seriesVisible(int series) const
{
    const Series* s = find(series);
    return s && s->visible;
}

void InMemoryChartSurface::setSeriesVisible(int series, bool visible)
{
    Series* s = find(series);
    if (!s || s->visible == visible)
        return;
    s->visible = visible;
    changed();
}

double InMemoryChartSurface::axisMin(Axis which) const { return axis(which).min; }
double InMemoryChartSurface::axisMax(Axis which) const { return axis(which).max; }

void InMemoryChartSurface::setAxisMin(Axis which, double value)
{
    axis(which).min = value;
    changed();
}

void InMemoryChartSurface::setAxisMax(Axis which, double value)
{
    axis(which).max = value;
    changed();
}

QString InMemoryChartSurface::axisTitle(Axis which) const { return axis(which).title; }

void InMemoryChartSurface::setAxisTitle(Axis which, const QString& title)
{
    axis(which).title = title;
    changed();
}

QString InMemoryChartSurface::axisLabelFormat(Axis which) const { return axis(which).labelFormat; }

void InMemoryChartSurface::setAxisLabelFormat(Axis which, const QString& format)
{
    axis(which).labelFormat = format;
    changed();
}

QString InMemoryChartSurface::timeFormat() const { return timeFormat_; }

void InMemoryChartSurface::setTimeFormat(const QString& format)
{
    timeFormat_ = format;
    changed();
}

void InMemoryChartSurface::beginBatch() { ++batchDepth_; }

void InMemoryChartSurface::endBatch()
{
    if (batchDepth_ == 0)
        return;
    if (--batchDepth_ == 0 && batchChanged_) {
        batchChanged_ = false;
        ++redrawCount_;
    }
}

void InMemoryChartSurface::redraw() { ++redrawCount_; }

void InMemoryChartSurface::copyToClipboard() { ++clipboardCopies_; }

void InMemoryChartSurface::setMarkerVisible(bool visible)
{
    markerVisible_ = visible;
    changed();
}

void InMemoryChartSurface::setMarkerX(double x)
{
    markerX_ = x;
    changed();
}

QPointF InMemoryChartSurface::pixelToData(const QPointF& pixel) const
{
    const double dataX = x_.min + pixel.x() / PlotWidth * (x_.max - x_.min);
    const double dataY = y_.max - pixel.y() / PlotHeight * (y_.max - y_.min);
    return { dataX, dataY };
}

std::vector<QPointF> InMemoryChartSurface::drawnPoints(int series) const
{
    std::vector<QPointF> points;
    const Series* s = find(series);
    if (!s)
        return points;
    for (std::size_t i = 0; i < s->x.size(); ++i) {
        if (s->x[i] != emptyValue_ && s->y[i] != emptyValue_)
            points.emplace_back(s->x[i], s->y[i]);
    }
    return points;
}

void InMemoryChartSurface::changed()
{
    if (batchDepth_ > 0)
        batchChanged_ = true;
    else
        ++redrawCount_;
}

qint64 InMemoryChartSurface::color(Color which) const { return colors_.at(size_t(which)); }

void InMemoryChartSurface::setColor(Color which, qint64 rgb)
{
    colors_.at(size_t(which)) = rgb;
    changed();
}

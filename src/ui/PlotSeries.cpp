#include "PlotSeries.h"

#include <algorithm>
#include <qcustomplot.h>

// The graph's sorted container, read and written by index through its own public calls.
class ReadingStore : public QCPGraphDataContainer {
public:
    const QCPGraphData& point(int index) const { return *(constBegin() + index); }
    QCPGraphData& point(int index) { return *(begin() + index); }
    void append(double key, double value) { add(QCPGraphData(key, value)); }

    // Keeps the first `size` points. The container cuts by key and gives memory back by itself;
    // where a cut by key would not fall at `size` (an equal key on both sides of it, say), the
    // first points are set anew.
    void truncate(int size)
    {
        if (size >= this->size())
            return;
        const const_iterator kept = constBegin() + size;
        if (size > 0
            && std::upper_bound(
                   constBegin(), constEnd(), *(kept - 1), qcpLessThanSortKey<QCPGraphData>)
                == kept) {
            removeAfter((kept - 1)->key);
            return;
        }
        set(QVector<QCPGraphData>(constBegin(), kept), true);
    }
};

PlotSeries::PlotSeries(QCPGraph* graph, const double& emptyValue)
    : graph_(graph)
    , empty_(emptyValue)
    , store_(new ReadingStore)
    , next_(emptyPoint())
{
    graph_->setData(store_);
}

PlotSeries::~PlotSeries() = default;

int PlotSeries::drawn() const { return store_->size(); }

PlotSeries::Point PlotSeries::point(int index) const
{
    if (!inOrder_)
        return all_[std::size_t(index - 1)];
    const int m = drawn();
    if (index <= m) {
        const QCPGraphData& d = store_->point(index - 1);
        return { d.key, d.value };
    }
    if (index == m + 1)
        return next_;
    const auto it = later_.find(index);
    return it == later_.end() ? emptyPoint() : it->second;
}

double PlotSeries::x(int point) const
{
    return point < 1 || point > count_ ? empty_ : this->point(point).x;
}

double PlotSeries::y(int point) const
{
    return point < 1 || point > count_ ? empty_ : this->point(point).y;
}

void PlotSeries::setX(int point, double value)
{
    if (point < 1 || point > count_)
        return;
    Point p = this->point(point);
    p.x = value;
    setPoint(point, p);
}

void PlotSeries::setY(int point, double value)
{
    if (point < 1 || point > count_)
        return;
    Point p = this->point(point);
    p.y = value;
    setPoint(point, p);
}

void PlotSeries::setPoint(int index, const Point& p)
{
    if (!inOrder_) {
        all_[std::size_t(index - 1)] = p;
        dirty_ = true;
        return;
    }
    const int m = drawn();
    if (index <= m) {
        if (drawable(p)) {
            // Written in place as long as the X order holds.
            const bool afterPrevious = index == 1 || store_->point(index - 2).key <= p.x;
            const bool beforeNext = index == m || p.x <= store_->point(index).key;
            if (afterPrevious && beforeNext) {
                QCPGraphData& d = store_->point(index - 1);
                d.key = p.x;
                d.value = p.y;
                touch(index - 1);
                return;
            }
        } else if (index == m) {
            demoteLast();
            next_ = p;
            return;
        }
        makeGeneral();
        setPoint(index, p);
        return;
    }
    if (index == m + 1) {
        next_ = p;
        absorbNext();
        return;
    }
    if (drawable(p)) {
        // A drawable point behind a gap must be drawn too: only the general model can.
        makeGeneral();
        setPoint(index, p);
        return;
    }
    if (p.x == empty_ && p.y == empty_)
        later_.erase(index);
    else
        later_[index] = p;
}

// Moves the next point into the graph once it is drawable and in order.
void PlotSeries::absorbNext()
{
    if (!drawable(next_))
        return;
    const int m = drawn();
    if (m > 0 && next_.x < store_->point(m - 1).key) {
        makeGeneral();
        return;
    }
    store_->append(next_.x, next_.y);
    touch(m);
    next_ = emptyPoint();
    const auto it = later_.find(m + 2);
    if (it != later_.end()) {
        next_ = it->second;
        later_.erase(it);
    }
}

// The last drawn point is being emptied: it becomes the next point again.
void PlotSeries::demoteLast()
{
    const int m = drawn();
    if (next_.x != empty_ || next_.y != empty_)
        later_[m + 1] = next_;
    const QCPGraphData d = store_->point(m - 1);
    next_ = { d.key, d.value };
    store_->truncate(m - 1);
    touch(m - 1);
}

void PlotSeries::makeGeneral()
{
    if (!inOrder_)
        return;
    std::vector<Point> all;
    all.reserve(std::size_t(count_));
    for (int i = 1; i <= count_; ++i)
        all.push_back(point(i));
    all_ = std::move(all);
    later_.clear();
    next_ = emptyPoint();
    inOrder_ = false;
    dirty_ = true;
}

void PlotSeries::makeFastIfSmall()
{
    if (inOrder_ || count_ > 1)
        return;
    next_ = count_ == 1 ? all_.front() : emptyPoint();
    all_.clear();
    all_.shrink_to_fit();
    store_->truncate(0);
    touch(0);
    inOrder_ = true;
    dirty_ = false;
    absorbNext();
}

void PlotSeries::setCount(int count)
{
    if (count < 0 || count == count_)
        return;
    if (!inOrder_) {
        all_.resize(std::size_t(count), emptyPoint());
        count_ = count;
        dirty_ = true;
        makeFastIfSmall();
        return;
    }
    if (count < count_) {
        const int m = drawn();
        if (count <= m) {
            store_->truncate(count);
            touch(count);
            next_ = emptyPoint();
            later_.clear();
        } else {
            later_.erase(later_.upper_bound(count), later_.end());
        }
    }
    count_ = count;
}

void PlotSeries::beforeEmptyValueChange()
{
    if (count_ > 0)
        makeGeneral();
}

void PlotSeries::afterEmptyValueChange()
{
    dirty_ = !inOrder_;
    makeFastIfSmall();
}

void PlotSeries::sync()
{
    if (inOrder_ || !dirty_)
        return;
    QVector<QCPGraphData> points;
    for (const Point& p : all_) {
        if (drawable(p))
            points.append(QCPGraphData(p.x, p.y));
    }
    std::stable_sort(points.begin(), points.end(),
        [](const QCPGraphData& a, const QCPGraphData& b) { return a.key < b.key; });
    store_->set(points, true);
    dirty_ = false;
}

void PlotSeries::markDrawn()
{
    drawnMark_ = drawn();
    touchedFrom_ = Untouched;
}

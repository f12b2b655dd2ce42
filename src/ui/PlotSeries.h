#pragma once

#include <QSharedPointer>
#include <QtGlobal>
#include <algorithm>
#include <limits>
#include <map>
#include <vector>

class QCPGraph;
class ReadingStore;

// One chart series kept on a QCPGraph, addressed by 1-based point number as the engine sees it.
//
// The usual series grows at its end with increasing X, so its drawable points (neither X nor Y at
// the empty-point value) are the graph's own sorted container, point k at index k - 1: reading
// or writing a point is O(1) and no second copy of the readings exists. Points after the last
// drawable one wait in a single slot (the next point) or a small map (later points still being
// filled); they are the series' bookkeeping only and never reach the graph.
//
// A change that would break that layout (an X out of order, a drawable point emptied in the
// middle, a point completed behind a gap) switches the series to a general model: a full copy
// of all points, re-sorted into the graph before each redraw. Emptying the series (a count of 0
// or 1) returns it to the fast layout.
class PlotSeries {
public:
    // The graph's data is replaced by the series' own container; emptyValue is the chart's
    // empty-point value, read on every check.
    PlotSeries(QCPGraph* graph, const double& emptyValue);
    ~PlotSeries();
    PlotSeries(const PlotSeries&) = delete;
    PlotSeries& operator=(const PlotSeries&) = delete;

    QCPGraph* graph() const { return graph_; }
    int count() const { return count_; }
    void setCount(int count);
    double x(int point) const;
    double y(int point) const;
    void setX(int point, double value);
    void setY(int point, double value);

    // Called around a change of the empty-point value: points that were empty keep the old
    // value as a plain number, and drawability is judged again with the new one.
    void beforeEmptyValueChange();
    void afterEmptyValueChange();

    // Brings the graph up to date; only the general model has anything to do.
    void sync();
    // True while the series keeps the fast layout.
    bool inOrder() const { return inOrder_; }

    // Drawing in part. markDrawn() notes that the graph has just been drawn as it stands; until
    // the next call, the series knows whether its graph has only gained points at its end (which
    // a redraw of their area alone can show) or has not changed at all.
    void markDrawn();
    bool graphUnchanged() const { return inOrder_ && touchedFrom_ == Untouched; }
    bool graphOnlyGrew() const { return inOrder_ && touchedFrom_ >= drawnMark_; }
    // The graph's points at the last markDrawn(); those after them are new.
    int drawnMark() const { return drawnMark_; }

private:
    struct Point {
        double x;
        double y;
    };

    Point emptyPoint() const { return { empty_, empty_ }; }
    bool drawable(const Point& p) const { return p.x != empty_ && p.y != empty_; }
    int drawn() const;
    Point point(int index) const;
    void setPoint(int index, const Point& p);
    void absorbNext();
    void demoteLast();
    void makeGeneral();
    void makeFastIfSmall();
    // The graph's points from index (0-based) onwards have changed.
    void touch(int index) { touchedFrom_ = std::min(touchedFrom_, index); }
    static constexpr int Untouched = std::numeric_limits<int>::max();

    QCPGraph* graph_;
    const double& empty_;
    // Shared with the graph, which draws straight from it.
    QSharedPointer<ReadingStore> store_;
    int count_ = 0;
    bool inOrder_ = true;
    // Fast layout: the point after the last drawn one, and later points that hold a value.
    Point next_;
    std::map<int, Point> later_;
    // General model.
    std::vector<Point> all_;
    bool dirty_ = false;
    int drawnMark_ = 0;
    int touchedFrom_ = 0;
};

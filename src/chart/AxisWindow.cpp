// The 300-interval window rule: no X range admitted to the chart spans MaxWindowPoints sample
// intervals or more.
//
// IsXRangeOverWindow counts the readings in a range the way two forward scans over the rounded
// X values would: the start scan re-reads point 1 before moving on and begins at point 1 outright
// when xMin is exactly 0; the end scan starts at the start index, re-reads it, and stops one past
// the first point beyond xMax. The count may differ by one from an exact count, and the
// threshold applies to this count. Readings arrive in time order, so their rounded X values
// never decrease and both scans become searches that gallop back from the newest reading; a series
// that is out of order (only a hand-edited plot file can make one) is scanned point by point.
#include "GraphingFunctions.h"

#include "base/Numbers.h"

#include <algorithm>

namespace {
using Axis = ChartSurface::Axis;

double rounded(const ChartSurface& chart, int point)
{
    return Numbers::RoundHalfEven(chart.x(GraphingFunctions::ReadingSeries, point));
}

std::optional<qint16> windowWidth(qint16 spacing)
{
    const int w = int(spacing) * GraphingFunctions::MaxWindowPoints;
    if (w > 32767 || w < -32768)
        return std::nullopt;
    return qint16(w);
}

QString windowFormat() { return QStringLiteral("0.#"); }
} // namespace

std::optional<qint16> GraphingFunctions::GetPointSpacing() const
{
    if (!ChartHasPoints())
        return 0;
    const int n = chart_.pointCount(ReadingSeries);
    if (n < 3)
        return 0;
    return Numbers::ToInt16(chart_.x(ReadingSeries, 2) - chart_.x(ReadingSeries, 1));
}

std::optional<double> GraphingFunctions::CalcXMinForWindow(double xMin, double xMax) const
{
    const auto d = GetPointSpacing();
    if (d == 0)
        return xMin;
    const auto w = d ? windowWidth(*d) : std::nullopt;
    if (!w)
        return std::nullopt;
    xMin = Numbers::Val(Numbers::Format(xMax - *w, windowFormat()));
    return xMin <= 0 ? 0 : xMin;
}

std::optional<double> GraphingFunctions::CalcXMaxForWindow(double xMin, double xMax) const
{
    const auto d = GetPointSpacing();
    if (d == 0)
        return xMax;
    const auto w = d ? windowWidth(*d) : std::nullopt;
    if (!w)
        return std::nullopt;
    return Numbers::Val(Numbers::Format(*w + xMin, windowFormat()));
}

bool GraphingFunctions::IsXRangeOverWindow(double xMin, double xMax) const
{
    if (!ChartHasPoints())
        return false;
    const int n = chart_.pointCount(ReadingSeries);
    // Without a reading both scans end before they start.
    if (n < 2)
        return false;

    if (!readingsInOrder(n)) {
        int i = 1;
        double x = rounded(chart_, 1);
        if (xMin != 0) {
            while (!(xMin < x || i >= n)) {
                x = rounded(chart_, i);
                ++i;
            }
        } else {
            i = 2;
        }
        const int s = i - 1;
        int j = std::min(s, n);
        x = rounded(chart_, j);
        while (!(xMax < x || j >= n)) {
            x = rounded(chart_, j);
            ++j;
        }
        return j - s >= MaxWindowPoints;
    }

    int s;
    if (xMin == 0)
        s = 1;
    else if (xMin < rounded(chart_, 1))
        s = 0;
    else
        s = std::min(firstAbove(xMin, 2, n - 1), n - 1);

    // Point 0 is no reading: the chart answers it with whatever it gives for a missing point.
    int end;
    if (xMax < rounded(chart_, s))
        end = s;
    else
        end = std::min(firstAbove(xMax, s + 1, n) + 1, n);
    return end - s >= MaxWindowPoints;
}

// The first point in [from, to) whose rounded X exceeds limit, or to when none does. A live
// window lies at the newest end of the series, so the search gallops back from there: its cost
// follows the distance from the end, not the length of the record.
int GraphingFunctions::firstAbove(double limit, int from, int to) const
{
    if (from >= to || !(limit < rounded(chart_, to - 1)))
        return to;
    qint64 above = to - 1; // known to exceed the limit
    qint64 notAbove = qint64(from) - 1; // known not to, or before the range
    for (qint64 step = 1;; step *= 2) {
        const qint64 probe = above - step;
        if (probe < from)
            break;
        if (!(limit < rounded(chart_, int(probe)))) {
            notAbove = probe;
            break;
        }
        above = probe;
    }
    qint64 lo = notAbove + 1;
    qint64 hi = above;
    while (lo < hi) {
        const qint64 mid = lo + (hi - lo) / 2;
        if (limit < rounded(chart_, int(mid)))
            hi = mid;
        else
            lo = mid + 1;
    }
    return int(lo);
}

bool GraphingFunctions::readingsInOrder(int n) const
{
    if (n == checkedCount_)
        return inOrder_;
    if (n < checkedCount_ && inOrder_ && n >= 2) {
        // Dropping readings off the end keeps an ordered series ordered.
        checkedCount_ = n;
        lastChecked_ = rounded(chart_, n - 1);
        return true;
    }
    int from = checkedCount_;
    if (n < checkedCount_ || checkedCount_ < 2) {
        inOrder_ = true;
        from = 1;
    }
    for (int i = from; i < n; ++i) {
        const double x = rounded(chart_, i);
        // A NaN is out of order too.
        if (i > 1 && !(x >= lastChecked_))
            inOrder_ = false;
        lastChecked_ = x;
    }
    checkedCount_ = n;
    return inOrder_;
}

void GraphingFunctions::SeriesReplaced()
{
    checkedCount_ = 0;
    inOrder_ = true;
    if (seriesReplaced_)
        seriesReplaced_();
}

#include "ChartCursor.h"

#include "ChartSurface.h"
#include "CursorReadout.h"
#include "MarkerDataModel.h"
#include "TwoPointMeasure.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"

ChartCursor::ChartCursor(ChartSurface& chart, MainWindowModel& main, MarkerDataModel& data)
    : chart_(chart)
    , main_(main)
    , data_(data)
{
}

bool ChartCursor::isOn() const { return main_.cmdMarkers.caption() == QLatin1String(On); }

void ChartCursor::cmdMarkers_Click()
{
    if (main_.cmdMarkers.caption() == QLatin1String(Off)) {
        savedBackColor_ = main_.cmdMarkers.backColor();
        main_.cmdMarkers.setBackColor(Colors::fromBgr(65535));
        main_.cmdMarkers.setCaption(QString::fromLatin1(On));
        chart_.setMarkerVisible(true);
        if (windows_)
            windows_->showMarkerData();
        return;
    }
    main_.cmdMarkers.setCaption(QString::fromLatin1(Off));
    main_.cmdMarkers.setBackColor(savedBackColor_);
    chart_.setMarkerVisible(false);
    Unpin();
    if (windows_)
        windows_->unloadMarkerData();
}

void ChartCursor::TempChart_MouseMove(const QPointF& pixel)
{
    if (!isOn())
        return;
    const double x = chart_.pixelToData(pixel).x();
    chart_.setMarkerX(x);
    const CursorPoint point = showReadout(x, pinned_.has_value());
    if (!pinned_)
        return;
    showMeasure(x, point);
    if (pinView_) {
        std::optional<QPointF> current;
        if (point.kind == CursorPoint::Kind::Data)
            current = QPointF(x, point.y);
        pinView_->showPinnedPoint(*pinned_, current);
    }
}

void ChartCursor::TempChart_Click(const QPointF& pixel)
{
    if (!isOn())
        return;
    if (pinned_) {
        Unpin();
        return;
    }
    const double x = chart_.pixelToData(pixel).x();
    chart_.setMarkerX(x);
    const CursorPoint point = showReadout(x, true);
    // Only a reading can be pinned: a click beside the data changes nothing.
    if (point.kind != CursorPoint::Kind::Data)
        return;
    pinned_ = QPointF(x, point.y);
    data_.lblPinned.setCaption(PinnedPointText(*pinned_));
    showMeasure(x, point);
    data_.showMeasure(true);
    if (pinView_)
        pinView_->showPinnedPoint(*pinned_, *pinned_);
}

void ChartCursor::Unpin()
{
    if (!pinned_)
        return;
    pinned_.reset();
    data_.showMeasure(false);
    if (pinView_)
        pinView_->hidePinnedPoint();
}

void ChartCursor::frmMarkerData_Unload()
{
    if (main_.cmdMarkers.caption() != QLatin1String(Off))
        cmdMarkers_Click();
}

CursorPoint ChartCursor::showReadout(double x, bool needPoint)
{
    const CursorText readout = CursorReadout(chart_, x);
    data_.lblTemp.setCaption(readout.text);
    data_.lblTime.setCaption(
        readout.hasData ? Numbers::Format(x, QStringLiteral("0.00")) : QStringLiteral("NO DATA"));
    // The measurement needs the value itself, not its text.
    return needPoint ? CursorPointAt(chart_, x) : CursorPoint {};
}

void ChartCursor::showMeasure(double x, const CursorPoint& point)
{
    const TwoPointTexts texts = TwoPointMeasure(
        *pinned_, x, point, MinutesPerTimeUnit(chart_.axisTitle(ChartSurface::Axis::X)));
    data_.lblDeltaTime.setCaption(texts.deltaTime);
    data_.lblDeltaTemp.setCaption(texts.deltaTemp);
    data_.lblRate.setCaption(texts.rate);
}

#include "ChartCursor.h"

#include "ChartSurface.h"
#include "CursorReadout.h"
#include "MarkerDataModel.h"
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
    if (windows_)
        windows_->unloadMarkerData();
}

void ChartCursor::TempChart_MouseMove(const QPointF& pixel)
{
    if (!isOn())
        return;
    double x = chart_.pixelToData(pixel).x();
    chart_.setMarkerX(x);
    qint16 hasData = 0;
    data_.lblTemp.setCaption(CursorReadout(chart_, x, hasData));
    data_.lblTime.setCaption(
        hasData ? Numbers::Format(x, QStringLiteral("0.00")) : QStringLiteral("NO DATA"));
}

void ChartCursor::frmMarkerData_Unload()
{
    if (main_.cmdMarkers.caption() != QLatin1String(Off))
        cmdMarkers_Click();
}

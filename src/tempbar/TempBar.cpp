#include "TempBar.h"

#include "base/Numbers.h"

#include <cstdlib>

namespace {
// A difference of two 16-bit temperatures, in 16 bits: empty when it does not fit.
std::optional<qint16> Difference(qint16 a, qint16 b)
{
    const int d = int(a) - int(b);
    if (d < -32768 || d > 32767)
        return std::nullopt;
    return qint16(d);
}

// Where v lies on the scale, 0 at the bottom and 1 at the top; empty on an overflow or 0 / 0.
std::optional<double> Fraction(qint16 v, qint16 minTemp, qint16 maxTemp)
{
    const auto above = Difference(v, minTemp);
    const auto span = Difference(maxTemp, minTemp);
    if (!above || !span || *span == 0)
        return std::nullopt;
    return double(*above) / double(*span);
}

std::optional<int> MarkerTop(qint16 v, qint16 minTemp, qint16 maxTemp, double correction)
{
    const auto f = Fraction(v, minTemp, maxTemp);
    if (!f)
        return std::nullopt;
    return int(Numbers::RoundHalfEven(
        TempBar::BarBottom - *f * TempBar::FullHeight - TempBar::MarkerHeight / 2.0 - correction));
}
} // namespace

std::optional<qint16> TempBar::BarTop(qint16 t, qint16 minTemp, qint16 maxTemp)
{
    const auto f = Fraction(t, minTemp, maxTemp);
    if (!f)
        return std::nullopt;
    return Numbers::ToInt16(BarBottom - *f * FullHeight);
}

std::optional<int> TempBar::HighMarkerTop(qint16 v, qint16 minTemp, qint16 maxTemp)
{
    // The high arrow sits 40 twips above its scale point, the low one almost exactly on it.
    return MarkerTop(v, minTemp, maxTemp, 40.0);
}

std::optional<int> TempBar::LowMarkerTop(qint16 v, qint16 minTemp, qint16 maxTemp)
{
    return MarkerTop(v, minTemp, maxTemp, (100.0 / 3600.0) * 40.0);
}

std::optional<std::array<QString, 5>> TempBar::InnerScaleLabels(qint16 minTemp, qint16 maxTemp)
{
    const auto span = Difference(maxTemp, minTemp);
    // The absolute value of -32768 does not fit 16 bits either.
    if (!span || *span == -32768)
        return std::nullopt;
    const float step = float(std::abs(int(*span))) / 6.0f;
    std::array<QString, 5> labels;
    for (int k = 1; k <= 5; ++k)
        labels[k - 1]
            = Numbers::Format(double(float(minTemp) + float(k) * step), QStringLiteral("0.0"));
    return labels;
}

TempBar::TempBar(QObject* parent)
    : ViewModel(parent)
{
    tmrBlinker_.setInterval(BlinkIntervalMs);
    connect(&tmrBlinker_, &QTimer::timeout, this, &TempBar::tmrBlinker_Timer);
    UserControl_Initialize();
}

void TempBar::UserControl_Initialize()
{
    AutoRangeOn = false;
    AlarmLimitsOn = true;
    SetUnitsDegF();
    MinTemp = 0;
    MaxTemp = 100;
    HighLimit = 85;
    LowLimit = 25;
    SetTemp(0);
    SetMinTemp(MinTemp);
    SetMaxTemp(MaxTemp);
    SetHighLimit(HighLimit);
    SetLowLimit(LowLimit);
    UpdateScaleLabels();
    shpIndicator.setBackColor(Yellow);
}

void TempBar::SetTemp(qint16 t)
{
    // The limit caption and its blinking
    if (!AutoRangeOn) {
        if (MinTemp <= t && t <= MaxTemp) {
            reapplyUnits();
            tmrBlinker_.stop();
        } else if (t > MaxTemp) {
            lblTempBar.setCaption(overLimitCaption());
            lblTempBar.setForeColor(Red);
            if (!tmrBlinker_.isActive())
                tmrBlinker_.start();
        } else {
            lblTempBar.setCaption(underLimitCaption());
            lblTempBar.setForeColor(Yellow);
            if (!tmrBlinker_.isActive())
                tmrBlinker_.start();
        }
    }

    // The fill colour; a reading on the high limit is still green, one on the low limit
    // already yellow
    if (AlarmLimitsOn) {
        if (t > HighLimit)
            shpIndicator.setBackColor(Red);
        else if (t <= LowLimit)
            shpIndicator.setBackColor(Yellow);
        else
            shpIndicator.setBackColor(Green);
    } else {
        shpIndicator.setBackColor(Cyan);
    }

    // The bar's height
    if (t > MaxTemp) {
        setIndicator(BarBottom - FullHeight, FullHeight);
        lblTempBar.setCaption(saturatedCaption());
    } else if (MinTemp < t) {
        if (!AutoRangeOn)
            reapplyUnits();
        if (const auto top = BarTop(t, MinTemp, MaxTemp))
            setIndicator(*top, BarBottom - *top);
    } else {
        setIndicator(indicatorTop_, 0);
    }
}

void TempBar::ClearTemp()
{
    SetTemp(MinTemp);
    markDirty();
}

void TempBar::SetMaxTemp(qint16 value)
{
    MaxTemp = value;
    lblMaxTemp.setCaption(QString::number(value));
    UpdateScaleLabels();
}

void TempBar::SetMinTemp(qint16 value)
{
    MinTemp = value;
    lblMinTemp.setCaption(QString::number(value));
    UpdateScaleLabels();
}

void TempBar::EnableAlarmLimits(bool on)
{
    AlarmLimitsOn = on;
    imageHighLimit.setVisible(on);
    imageLowLimit.setVisible(on);
}

void TempBar::EnableAutoRange(bool on) { AutoRangeOn = on; }

void TempBar::SetUnitsDegF()
{
    lblTempBar.setCaption(degFCaption());
    UnitsCode = 1;
    lblTempBar.setForeColor(Yellow);
    lblTempBar.setVisible(true);
}

void TempBar::SetUnitsDegC()
{
    lblTempBar.setCaption(degCCaption());
    UnitsCode = 2;
    lblTempBar.setForeColor(Yellow);
    lblTempBar.setVisible(true);
}

void TempBar::SetHighLimit(qint16 value)
{
    HighLimit = value;
    if (MinTemp <= value && value <= MaxTemp) {
        const auto top = HighMarkerTop(value, MinTemp, MaxTemp);
        if (!top)
            return;
        highMarkerTop_ = *top;
        imageHighLimit.setVisible(true);
        markDirty();
    } else {
        imageHighLimit.setVisible(false);
    }
}

void TempBar::SetLowLimit(qint16 value)
{
    LowLimit = value;
    if (MinTemp <= value && value <= MaxTemp) {
        const auto top = LowMarkerTop(value, MinTemp, MaxTemp);
        if (!top)
            return;
        lowMarkerTop_ = *top;
        imageLowLimit.setVisible(true);
        markDirty();
    } else {
        imageLowLimit.setVisible(false);
    }
}

void TempBar::tmrBlinker_Timer() { lblTempBar.setVisible(!lblTempBar.visible()); }

void TempBar::UpdateScaleLabels()
{
    const auto labels = InnerScaleLabels(MinTemp, MaxTemp);
    if (!labels)
        return;
    Control* inner[] = { &lblTemp2, &lblTemp3, &lblTemp4, &lblTemp5, &lblTemp6 };
    for (int k = 0; k < 5; ++k)
        inner[k]->setCaption((*labels)[k]);
}

void TempBar::reapplyUnits()
{
    if (UnitsCode == 1)
        SetUnitsDegF();
    else
        SetUnitsDegC();
}

void TempBar::setIndicator(int top, int height)
{
    if (top == indicatorTop_ && height == indicatorHeight_)
        return;
    indicatorTop_ = top;
    indicatorHeight_ = height;
    markDirty();
}

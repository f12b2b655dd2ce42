#pragma once

#include "base/TempBarDisplay.h"
#include "base/ViewModel.h"

#include <QString>
#include <QTimer>
#include <array>
#include <optional>

// The temperature bar component: one vertical bar for the latest reading, a scale of seven
// labels, two alarm-limit markers, a coloured fill and a blinking status caption. It keeps its
// range and limits in whole degrees and its geometry in twips (1/1440 inch), as the view draws
// it; the view scales twips to pixels. It knows nothing of the serial line or the chart.
class TempBar : public ViewModel, public TempBarDisplay {
    Q_OBJECT
public:
    // Geometry in twips.
    static constexpr int BarBottom = 4140;
    static constexpr int FullHeight = 3600;
    static constexpr int BackBoxLeft = 930;
    static constexpr int BackBoxTop = 480;
    static constexpr int BackBoxWidth = 495;
    static constexpr int BackBoxHeight = 3975;
    static constexpr int IndicatorLeft = 1005;
    static constexpr int IndicatorWidth = 345;
    static constexpr int TickRight = 915;
    static constexpr int TickLeft = 675;
    static constexpr int ShortTickLeft = 690; // Line2
    static constexpr int FirstTickY = 525;
    static constexpr int TickSpacing = 600;
    static constexpr int LabelLeft = -270;
    static constexpr int LabelWidth = 945;
    static constexpr int LabelHeight = 255;
    // The arrow pictures: their height enters the marker placement.
    static constexpr int MarkerHeight = 240;
    static constexpr int MarkerWidth = 330;
    static constexpr int MarkerLeft = 1440;
    static constexpr int CaptionTop = 4560;
    static constexpr int CaptionHeight = 300;

    static constexpr int BlinkIntervalMs = 200;

    // Fill and caption colours, 0xRRGGBB.
    static constexpr qint64 Red = Colors::fromBgr(0x0000FF);
    static constexpr qint64 Yellow = Colors::fromBgr(0x00FFFF);
    static constexpr qint64 Green = Colors::fromBgr(0x00FF00);
    static constexpr qint64 Cyan = Colors::fromBgr(0xFFFF00);

    static QString degFCaption() { return QStringLiteral("TEMP. BAR - DEG F"); }
    static QString degCCaption() { return QStringLiteral("TEMP. BAR - DEG C"); }
    static QString overLimitCaption() { return QStringLiteral("TEMP. OVER LIMIT"); }
    static QString underLimitCaption() { return QStringLiteral("TEMP. UNDER LIMIT"); }
    static QString saturatedCaption() { return QStringLiteral("GRAPH SATURATED"); }

    // The arithmetic of the drawing. Differences are taken in 16 bits: an overflow, or 0 / 0
    // for a limit on an empty range, gives nothing and the caller leaves the drawing alone.
    static std::optional<qint16> BarTop(qint16 t, qint16 minTemp, qint16 maxTemp);
    static std::optional<int> HighMarkerTop(qint16 v, qint16 minTemp, qint16 maxTemp);
    static std::optional<int> LowMarkerTop(qint16 v, qint16 minTemp, qint16 maxTemp);
    // The five inner scale labels, bottom (lblTemp2) to top (lblTemp6).
    static std::optional<std::array<QString, 5>> InnerScaleLabels(qint16 minTemp, qint16 maxTemp);

    explicit TempBar(QObject* parent = nullptr);

    // Back to the component's starting state: defaults, empty bar, yellow fill, degrees F.
    void UserControl_Initialize();

    void SetTemp(qint16 temperature) override;
    void ClearTemp() override;
    void SetMaxTemp(qint16 value);
    void EnableAlarmLimits(bool on);
    bool IsAlarmOn() const { return AlarmLimitsOn; }
    void EnableAutoRange(bool on);
    bool IsAutoRangeOn() const { return AutoRangeOn; }
    qint16 GetMaxTemp() const { return MaxTemp; }
    qint16 GetMinTemp() const { return MinTemp; }
    qint16 GetHighLimit() const { return HighLimit; }
    qint16 GetLowLimit() const { return LowLimit; }
    void SetMinTemp(qint16 value);
    void SetUnitsDegF() override;
    void SetHighLimit(qint16 value);
    void SetLowLimit(qint16 value);
    void SetUnitsDegC() override;

    void tmrBlinker_Timer();
    QTimer& tmrBlinker() { return tmrBlinker_; }
    bool blinking() const { return tmrBlinker_.isActive(); }

    qint16 unitsCode() const { return UnitsCode; }

    // The bar (shpIndicator) in twips; its fill colour is shpIndicator's back colour.
    int indicatorTop() const { return indicatorTop_; }
    int indicatorHeight() const { return indicatorHeight_; }
    // The markers' tops in twips; whether they show is their control's visible flag.
    int highMarkerTop() const { return highMarkerTop_; }
    int lowMarkerTop() const { return lowMarkerTop_; }

    Control frameTempBar { this, "frameTempBar" };
    Control shpBackBox { this, "shpBackBox" };
    Control shpIndicator { this, "shpIndicator" };
    Control lblMaxTemp { this, "lblMaxTemp" };
    Control lblTemp6 { this, "lblTemp6" };
    Control lblTemp5 { this, "lblTemp5" };
    Control lblTemp4 { this, "lblTemp4" };
    Control lblTemp3 { this, "lblTemp3" };
    Control lblTemp2 { this, "lblTemp2" };
    Control lblMinTemp { this, "lblMinTemp" };
    Control imageHighLimit { this, "imageHighLimit" };
    Control imageLowLimit { this, "imageLowLimit" };
    Control lblTempBar { this, "lblTempBar", QStringLiteral("TEMP. BAR - DEG F") };

    // The label tops of the scale, top to bottom: lblMaxTemp, lblTemp6 ... lblTemp2, lblMinTemp.
    static constexpr std::array<int, 7> LabelTops { 420, 1020, 1620, 2250, 2835, 3420, 4005 };
    std::array<const Control*, 7> scaleLabels() const
    {
        return { &lblMaxTemp, &lblTemp6, &lblTemp5, &lblTemp4, &lblTemp3, &lblTemp2, &lblMinTemp };
    }

private:
    void UpdateScaleLabels();
    void reapplyUnits();
    void setIndicator(int top, int height);

    qint16 MinTemp = 0;
    qint16 MaxTemp = 100;
    qint16 HighLimit = 85;
    qint16 LowLimit = 25;
    qint16 UnitsCode = 1;
    bool AutoRangeOn = false;
    bool AlarmLimitsOn = true;

    int indicatorTop_ = BarBottom;
    int indicatorHeight_ = 0;
    int highMarkerTop_ = 0;
    int lowMarkerTop_ = 0;
    QTimer tmrBlinker_;
};

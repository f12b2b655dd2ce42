#pragma once

#include "base/ViewModel.h"

#include <QStringList>

// The graph settings panel's state: captions, the four range boxes and the Y title (their
// captions), the two check boxes, the time-unit list's index and which box should have the focus.
class GraphSettingsModel : public FocusingModel {
    Q_OBJECT
public:
    using FocusingModel::FocusingModel;

    static QStringList timeUnits()
    {
        return { QStringLiteral("SECONDS"), QStringLiteral("MINUTES"), QStringLiteral("HOURS"),
            QStringLiteral("DAYS") };
    }

    Control frmGraphSettings { this, "frmGraphSettings", "GRAPH SETTINGS" };

    Control Frame2 { this, "Frame2", "X AXIS SETTINGS" };
    Control lblTimeUnits { this, "lblTimeUnits", "TIME UNITS:" };
    Control comTimeUnits { this, "comTimeUnits" };
    Control lblMinX { this, "lblMinX", "MIN. X" };
    Control txtMinX { this, "txtMinX" };
    Control lblMaxX { this, "lblMaxX", "MAX. X" };
    Control txtMaxX { this, "txtMaxX" };
    Control XMinIncrement { this, "XMinIncrement" };
    Control XMaxIncrement { this, "XMaxIncrement" };
    Control lblXScroll { this, "lblXScroll", "X AXIS SCROLL" };
    Control XDomainScroll { this, "XDomainScroll" };

    Control Frame1 { this, "Frame1", "Y AXIS SETTINGS" };
    Control lblMinY { this, "lblMinY", "MIN. Y" };
    Control txtMinY { this, "txtMinY" };
    Control lblMaxY { this, "lblMaxY", "MAX. Y" };
    Control txtMaxY { this, "txtMaxY" };
    Control YMinIncrement { this, "YMinIncrement" };
    Control YMaxIncrement { this, "YMaxIncrement" };
    Control lblYScroll { this, "lblYScroll", "Y AXIS SCROLL" };
    Control YDomainScroll { this, "YDomainScroll" };
    Control lblYTitle { this, "lblYTitle", "Y AXIS TITLE" };
    Control txtYTitle { this, "txtYTitle" };
    Control chkAutoRange { this, "chkAutoRange", "AUTO RANGE Y AXIS" };

    Control chkDispLimits { this, "chkDispLimits", "DISPLAY ALARM LIMITS" };
    Control cmdAccept { this, "cmdAccept", "&ACCEPT" };
    Control cmdClose { this, "cmdClose", "&CLOSE" };
    Control cmdResetChartParameters { this, "cmdResetChartParameters", "C&LEAR CHART" };

    // The time-unit list's selected entry, 0 to 3 (-1: none).
    int timeUnitIndex() const { return timeUnitIndex_; }
    void setTimeUnitIndex(int index)
    {
        if (index == timeUnitIndex_)
            return;
        timeUnitIndex_ = index;
        markDirty();
    }

private:
    int timeUnitIndex_ = -1;
};

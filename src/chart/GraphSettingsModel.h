#pragma once

#include "base/ViewModel.h"

#include <QStringList>

// The graph settings panel's state: the four range boxes and the Y title (their captions), the
// two check boxes, the time-unit list's index and which box should have the focus. The fixed
// captions are the form's.
class GraphSettingsModel : public FocusingModel {
    Q_OBJECT
public:
    using FocusingModel::FocusingModel;

    static QStringList timeUnits()
    {
        return { QStringLiteral("SECONDS"), QStringLiteral("MINUTES"), QStringLiteral("HOURS"),
            QStringLiteral("DAYS") };
    }

    Control frmGraphSettings { this, "frmGraphSettings" };

    Control Frame2 { this, "Frame2" };
    Control lblTimeUnits { this, "lblTimeUnits" };
    Control comTimeUnits { this, "comTimeUnits" };
    Control lblMinX { this, "lblMinX" };
    Control txtMinX { this, "txtMinX" };
    Control lblMaxX { this, "lblMaxX" };
    Control txtMaxX { this, "txtMaxX" };
    Control XMinIncrement { this, "XMinIncrement" };
    Control XMaxIncrement { this, "XMaxIncrement" };
    Control lblXScroll { this, "lblXScroll" };
    Control XDomainScroll { this, "XDomainScroll" };

    Control Frame1 { this, "Frame1" };
    Control lblMinY { this, "lblMinY" };
    Control txtMinY { this, "txtMinY" };
    Control lblMaxY { this, "lblMaxY" };
    Control txtMaxY { this, "txtMaxY" };
    Control YMinIncrement { this, "YMinIncrement" };
    Control YMaxIncrement { this, "YMaxIncrement" };
    Control lblYScroll { this, "lblYScroll" };
    Control YDomainScroll { this, "YDomainScroll" };
    Control lblYTitle { this, "lblYTitle" };
    Control txtYTitle { this, "txtYTitle" };
    Control chkAutoRange { this, "chkAutoRange" };

    Control chkDispLimits { this, "chkDispLimits" };
    Control cmdAccept { this, "cmdAccept" };
    Control cmdClose { this, "cmdClose" };
    Control cmdResetChartParameters { this, "cmdResetChartParameters" };

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

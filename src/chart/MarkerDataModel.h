#pragma once

#include "base/ViewModel.h"

// The CURSOR DATA window: the time and the temperature under the chart's cursor.
class MarkerDataModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmMarkerData { this, "frmMarkerData", "CURSOR DATA" };
    Control lblTimeCaption { this, "lblTimeCaption", "TIME" };
    Control lblTempCaption { this, "lblTempCaption", "Y VALUE" };
    Control lblTime { this, "lblTime" };
    Control lblTemp { this, "lblTemp" };
};

// Opens and closes the CURSOR DATA window, for the cursor's commands.
class MarkerDataWindows {
public:
    virtual ~MarkerDataWindows() = default;
    // Shows the window modeless, owned by the main window.
    virtual void showMarkerData() = 0;
    // Closes it without asking the cursor again.
    virtual void unloadMarkerData() = 0;
};

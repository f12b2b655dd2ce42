#pragma once

#include "base/ViewModel.h"

// The bar settings dialog's state: captions, the four boxes' texts (their captions), the two
// check boxes, and which box should have the focus.
class TempBarSettingsModel : public FocusingModel {
    Q_OBJECT
public:
    using FocusingModel::FocusingModel;

    Control frmTempBarSettings { this, "frmTempBarSettings", "TEMPERATURE BAR SETTINGS" };
    Control Label8 { this, "Label8", "TEMPERATURE BAR GRAPH SETTINGS" };
    Control Label9 { this, "Label9", "**These Settings Are For The Temperature Bar Graph Only," };
    Control Label10 { this, "Label10", "**They Do Not Control The IR-System." };

    Control Frame1 { this, "Frame1", "RANGE SETTINGS" };
    Control lblMaxTempCaption { this, "lblMaxTempCaption", "MAX. TEMP." };
    Control txtMaxTemp { this, "txtMaxTemp" };
    Control lblMinTempCaption { this, "lblMinTempCaption", "MIN. TEMP." };
    Control txtMinTemp { this, "txtMinTemp" };

    Control Frame3 { this, "Frame3", "ALARM LIMITS" };
    Control lblHighLimitCaption { this, "lblHighLimitCaption", "HIGH ALARM LIMIT" };
    Control txtHighLimit { this, "txtHighLimit" };
    Control lblLowLimitCaption { this, "lblLowLimitCaption", "LOW ALARM LIMIT" };
    Control txtLowLimit { this, "txtLowLimit" };

    Control Frame2 { this, "Frame2", "ALARM SETTINGS" };
    Control chkEnableAlarms { this, "chkEnableAlarms", "ENABLE VISIBLE INDICATORS" };
    Control chkAudibleAlarms { this, "chkAudibleAlarms", "ENABLE AUDIBLE ALARMS" };

    Control cmdAccept { this, "cmdAccept", "&OK" };
    Control cmdCancel { this, "cmdCancel", "&CANCEL" };
};

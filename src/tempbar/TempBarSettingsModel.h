#pragma once

#include "base/ViewModel.h"

// The bar settings dialog's state: the four boxes' texts (their captions), the two check boxes,
// and which box should have the focus. The fixed captions are the form's.
class TempBarSettingsModel : public FocusingModel {
    Q_OBJECT
public:
    using FocusingModel::FocusingModel;

    Control frmTempBarSettings { this, "frmTempBarSettings" };
    Control Label8 { this, "Label8" };
    Control Label9 { this, "Label9" };
    Control Label10 { this, "Label10" };

    Control Frame1 { this, "Frame1" };
    Control lblMaxTempCaption { this, "lblMaxTempCaption" };
    Control txtMaxTemp { this, "txtMaxTemp" };
    Control lblMinTempCaption { this, "lblMinTempCaption" };
    Control txtMinTemp { this, "txtMinTemp" };

    Control Frame3 { this, "Frame3" };
    Control lblHighLimitCaption { this, "lblHighLimitCaption" };
    Control txtHighLimit { this, "txtHighLimit" };
    Control lblLowLimitCaption { this, "lblLowLimitCaption" };
    Control txtLowLimit { this, "txtLowLimit" };

    Control Frame2 { this, "Frame2" };
    Control chkEnableAlarms { this, "chkEnableAlarms" };
    Control chkAudibleAlarms { this, "chkAudibleAlarms" };

    Control cmdAccept { this, "cmdAccept" };
    Control cmdCancel { this, "cmdCancel" };
};

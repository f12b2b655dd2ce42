#pragma once

#include "base/ViewModel.h"

// The bar window's own controls; the bar itself is the TempBar model it hosts.
class TempBarWindowModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmTempBar { this, "frmTempBar" };
    Control mnuConfigure { this, "mnuConfigure" };
};

#pragma once

#include "base/ViewModel.h"

// The stored points window's state; the text box itself is the data point store.
class StoredPointsModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmAcquiredPoints { this, "frmAcquiredPoints" };
    Control lblAcquiredPoints { this, "lblAcquiredPoints", "ACQUIRED DATA POINTS..." };
    // What the last transfer brought: "120 READINGS, 3 EMPTY LOCATIONS".
    Control lblReceivedCounts { this, "lblReceivedCounts", "" };
    Control cmdStartDownload { this, "cmdStartDownload", "START RECEIVING" };
    Control cmdSaveToTxtFile { this, "cmdSaveToTxtFile" };
    Control cmdSaveToExcel { this, "cmdSaveToExcel" };
    Control cmdClearAcqPts { this, "cmdClearAcqPts" };
};

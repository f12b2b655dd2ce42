#pragma once

#include "base/ViewModel.h"

// The stored points window's state; the text box itself is the data point store.
class StoredPointsModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmAcquiredPoints { this, "frmAcquiredPoints", "STORED DATA POINTS" };
    Control lblAcquiredPoints { this, "lblAcquiredPoints", "ACQUIRED DATA POINTS..." };
    // What the last transfer brought: "120 READINGS, 3 EMPTY LOCATIONS".
    Control lblReceivedCounts { this, "lblReceivedCounts", "" };
    Control cmdStartDownload { this, "cmdStartDownload", "START RECEIVING" };
    Control cmdSaveToTxtFile { this, "cmdSaveToTxtFile", "SAVE TO TXT FILE" };
    Control cmdSaveToExcel { this, "cmdSaveToExcel", "SAVE TO EXCEL FILE" };
    Control cmdClearAcqPts { this, "cmdClearAcqPts", "CLEAR DISPLAY" };
};

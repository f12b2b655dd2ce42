#pragma once

#include "base/ViewModel.h"

// The control tester's state: the reading it puts on the temperature bar (with the slider's
// range), the bar's switches as check boxes, and the link status display's state.
class ControlTesterModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmControlTester { this, "frmControlTester", "CONTROL TESTER" };

    Control fraTempBar { this, "fraTempBar", "TEMPERATURE BAR" };
    Control lblReading { this, "lblReading" };
    Control sldReading { this, "sldReading" };
    Control lblBarRange { this, "lblBarRange" };
    Control chkAlarmLimits { this, "chkAlarmLimits", "ALARM LIMITS" };
    Control chkAutoRange { this, "chkAutoRange", "AUTO RANGE" };
    Control chkDegC { this, "chkDegC", "DEGREES C" };
    Control cmdClearTemp { this, "cmdClearTemp", "CLEAR READING" };

    Control fraIRSystem { this, "fraIRSystem", "LINK STATUS" };
    Control cmdScanForIrSystem { this, "cmdScanForIrSystem", "SCAN FOR IR SYSTEM" };
    Control cmdSenseTemperature { this, "cmdSenseTemperature", "SENSE TEMPERATURE" };
    Control cmdDownloadIRData { this, "cmdDownloadIRData", "RECEIVE STORED DATA" };
    Control cmdSetToIdle { this, "cmdSetToIdle", "SET TO IDLE" };
    Control cmdResetOldState { this, "cmdResetOldState", "RESET OLD STATE" };
    Control lblCurrentState { this, "lblCurrentState" };
    Control lblOldState { this, "lblOldState" };

    Control cmdClose { this, "cmdClose", "&CLOSE" };

    // The slider: its range and position, in whole degrees.
    int readingMin() const { return readingMin_; }
    int readingMax() const { return readingMax_; }
    int reading() const { return reading_; }
    void setSlider(int min, int max, int value)
    {
        if (min == readingMin_ && max == readingMax_ && value == reading_)
            return;
        readingMin_ = min;
        readingMax_ = max;
        reading_ = value;
        markDirty();
    }

private:
    int readingMin_ = 0;
    int readingMax_ = 100;
    int reading_ = 0;
};

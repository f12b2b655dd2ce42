#pragma once

#include "base/ViewModel.h"

// The control tester's state: the reading it puts on the temperature bar (with the slider's
// range), the bar's switches as check boxes, and the link status display's state.
class ControlTesterModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    Control frmControlTester { this, "frmControlTester" };

    Control fraTempBar { this, "fraTempBar" };
    Control lblReading { this, "lblReading" };
    Control sldReading { this, "sldReading" };
    Control lblBarRange { this, "lblBarRange" };
    Control chkAlarmLimits { this, "chkAlarmLimits" };
    Control chkAutoRange { this, "chkAutoRange" };
    Control chkDegC { this, "chkDegC" };
    Control cmdClearTemp { this, "cmdClearTemp" };

    Control fraIRSystem { this, "fraIRSystem" };
    Control cmdScanForIrSystem { this, "cmdScanForIrSystem" };
    Control cmdSenseTemperature { this, "cmdSenseTemperature" };
    Control cmdDownloadIRData { this, "cmdDownloadIRData" };
    Control cmdSetToIdle { this, "cmdSetToIdle" };
    Control cmdResetOldState { this, "cmdResetOldState" };
    Control lblCurrentState { this, "lblCurrentState" };
    Control lblOldState { this, "lblOldState" };

    Control cmdClose { this, "cmdClose" };

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

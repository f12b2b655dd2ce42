#pragma once

#include "base/ViewModel.h"

#include <QStringList>

// The program parameters dialog's state. The read-outs' captions and the texts of the boxes live
// in the controls (the fixed captions are the form's); the two lists keep their items and
// selection here.
class ProgramParametersModel : public ViewModel {
    Q_OBJECT
public:
    using ViewModel::ViewModel;

    static QString SearchCaption() { return QStringLiteral("SEARCH FOR INSTRUMENT"); }

    Control frmProgramParameters { this, "frmProgramParameters" };

    Control lblCommunicationsTitle { this, "lblCommunicationsTitle" };
    Control lblCommPortCaption { this, "lblCommPortCaption" };
    // Its caption is the selected item's text.
    Control comCommPort { this, "comCommPort", "COM 1" };
    Control lblDeviceCaption { this, "lblDeviceCaption" };
    // Its caption is the device text, as shown or typed.
    Control comDevice { this, "comDevice" };
    Control cmdSearchForIr { this, "cmdSearchForIr", SearchCaption() };
    Control lblSearchStatus { this, "lblSearchStatus" };

    Control lblPcParametersTitle { this, "lblPcParametersTitle" };
    Control lblProcessorCaption { this, "lblProcessorCaption" };
    Control lblProcessor { this, "lblProcessor" };
    Control lblRamSizeCaption { this, "lblRamSizeCaption" };
    Control lblRamSize { this, "lblRamSize" };
    Control lblAvailiableRamCaption { this, "lblAvailiableRamCaption" };
    Control lblAvailiableRam { this, "lblAvailiableRam" };

    Control lblMaxViewableTitle { this, "lblMaxViewableTitle" };
    Control lblDataPointsCaption { this, "lblDataPointsCaption" };
    // Its caption is the text box's text.
    Control txtDataPoints { this, "txtDataPoints" };

    Control cmdOK { this, "cmdOK" };

    const QStringList& commPortItems() const { return commPortItems_; }
    // -1 when nothing is selected.
    int commPortListIndex() const { return commPortListIndex_; }
    void setCommPortListIndex(int index)
    {
        if (index < -1 || index >= commPortItems_.size())
            index = -1;
        if (index == commPortListIndex_)
            return;
        commPortListIndex_ = index;
        comCommPort.setCaption(index < 0 ? QString() : commPortItems_.at(index));
        markDirty();
    }

    // The serial devices offered in comDevice's list.
    const QStringList& deviceItems() const { return deviceItems_; }
    void setDeviceItems(const QStringList& items)
    {
        if (items == deviceItems_)
            return;
        deviceItems_ = items;
        markDirty();
    }

private:
    QStringList commPortItems_ { QStringLiteral("COM 1"), QStringLiteral("COM 2") };
    int commPortListIndex_ = 0;
    QStringList deviceItems_;
};

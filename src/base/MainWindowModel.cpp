#include "MainWindowModel.h"

MainWindowModel::MainWindowModel(QObject* parent)
    : ViewModel(parent)
{
    // Element 0 is unused and has no label.
    systParameters_[0] = std::make_unique<Control>(
        this, QStringLiteral("lblSystParameters_0"), Control::NoWidget {});
    for (int i = 1; i < SystParameterCount; ++i)
        systParameters_[i]
            = std::make_unique<Control>(this, QStringLiteral("lblSystParameters_%1").arg(i));
    cmdResetChart.setVisible(false);
    lblStatCurrentTemp.setVisible(false);
    lblViewHeld.setVisible(false);
    mnuStop.setEnabled(true);
}

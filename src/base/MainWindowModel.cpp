#include "MainWindowModel.h"

MainWindowModel::MainWindowModel(QObject* parent)
    : ViewModel(parent)
{
    for (int i = 0; i < SystParameterCount; ++i)
        systParameters_[i]
            = std::make_unique<Control>(this, QStringLiteral("lblSystParameters_%1").arg(i));
    cmdResetChart.setVisible(false);
    lblStatCurrentTemp.setVisible(false);
    lblViewHeld.setVisible(false);
    mnuStop.setEnabled(true);
}

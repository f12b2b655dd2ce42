#include "TempBarWindowHost.h"

#include "TempBarSettingsDialog.h"
#include "TempBarWindow.h"
#include "app/Application.h"

TempBarWindowHost::TempBarWindowHost(Application& app, QWidget* owner)
    : QObject(owner)
    , app_(app)
    , owner_(owner)
{
    app_.tempBarWindow.setWindows(this);
}

TempBarWindowHost::~TempBarWindowHost() { app_.tempBarWindow.setWindows(nullptr); }

void TempBarWindowHost::showTempBarWindow()
{
    if (!window_)
        window_ = new TempBarWindow(app_.bar, app_.tempBarWindowModel, app_.tempBarWindow, owner_);
    window_->show();
    window_->raise();
}

void TempBarWindowHost::unloadTempBarWindow()
{
    // The controller has already recorded the window as closed.
    if (window_)
        window_->hide();
}

void TempBarWindowHost::showTempBarSettings()
{
    TempBarSettingsDialog dialog(
        app_.tempBarSettingsModel, app_.tempBarSettings, window_ ? window_.data() : owner_);
    dialog.exec();
}

#include "DemoWindowHost.h"

#include "ControlTesterDialog.h"
#include "MainWindow.h"
#include "SplashWindow.h"
#include "TempBarWindow.h"
#include "TempBarWindowHost.h"
#include "app/Application.h"

#include <QScreen>
#include <algorithm>

DemoWindowHost::DemoWindowHost(Application& app, MainWindow& owner)
    : QObject(&owner)
    , app_(app)
    , owner_(owner)
{
    app_.demo.setWindows(this);
    app_.controlTester.setWindows(this);
}

DemoWindowHost::~DemoWindowHost()
{
    app_.demo.setWindows(nullptr);
    app_.controlTester.setWindows(nullptr);
}

void DemoWindowHost::showSystemStatusWindow()
{
    if (!app_.state.SystemStatusVisible)
        owner_.mnuViewSystemStatus_Click();
}

void DemoWindowHost::showControlTester()
{
    ControlTesterDialog dialog(app_.controlTesterModel, app_.controlTester, &owner_);
    tester_ = &dialog;
    dialog.adjustSize();
    placeBesideBar(dialog);
    dialog.exec();
}

void DemoWindowHost::placeBesideBar(QWidget& window)
{
    TempBarWindow* bar = owner_.tempBarWindows() ? owner_.tempBarWindows()->window() : nullptr;
    if (!bar || !bar->isVisible())
        return;
    const QRect frame = bar->frameGeometry();
    const QScreen* screen = bar->screen();
    const QRect area = screen ? screen->availableGeometry() : QRect();
    const int gap = 8;
    QPoint at(frame.right() + gap, frame.top());
    if (area.isValid() && at.x() + window.width() > area.right())
        at.setX(frame.left() - gap - window.frameGeometry().width());
    if (area.isValid()) {
        at.setX(
            std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - window.width())));
        at.setY(
            std::clamp(at.y(), area.top(), std::max(area.top(), area.bottom() - window.height())));
    }
    window.move(at);
}

void DemoWindowHost::showSplash()
{
    if (!splash_) {
        splash_ = new SplashWindow(&owner_);
        connect(splash_, &SplashWindow::finished, splash_, [s = splash_.data()] {
            s->hide();
            s->deleteLater();
        });
    }
    splash_->setStayOpen(true);
    splash_->start();
}

#pragma once

#include "ControlTesterDialog.h"
#include "SplashWindow.h"
#include "app/DemoWindows.h"

#include <QObject>
#include <QPointer>

class Application;
class MainWindow;

// Brings up the windows of the demo menu for its controllers: the link status window, the
// control tester (placed beside the bar window) and the splash opened again.
class DemoWindowHost : public QObject, public DemoWindows {
    Q_OBJECT
public:
    DemoWindowHost(Application& app, MainWindow& owner);
    ~DemoWindowHost() override;

    void showSystemStatusWindow() override;
    void showControlTester() override;
    void showSplash() override;

    ControlTesterDialog* controlTester() const { return tester_; }
    SplashWindow* splash() const { return splash_; }

private:
    void placeBesideBar(QWidget& window);

    Application& app_;
    MainWindow& owner_;
    QPointer<ControlTesterDialog> tester_;
    QPointer<SplashWindow> splash_;
};

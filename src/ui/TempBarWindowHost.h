#pragma once

#include "TempBarWindow.h"
#include "tempbar/TempBarWindows.h"

#include <QObject>
#include <QPointer>

class Application;

class QWidget;

// Creates the bar window on first use and runs its settings dialog, for the bar's controllers.
class TempBarWindowHost : public QObject, public TempBarWindows {
    Q_OBJECT
public:
    TempBarWindowHost(Application& app, QWidget* owner);
    ~TempBarWindowHost() override;

    TempBarWindow* window() const { return window_; }

    void showTempBarWindow() override;
    void unloadTempBarWindow() override;
    void showTempBarSettings() override;

private:
    Application& app_;
    QWidget* owner_;
    QPointer<TempBarWindow> window_;
};

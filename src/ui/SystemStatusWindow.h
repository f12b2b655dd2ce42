#pragma once

#include <QWidget>
#include <memory>

struct AppState;
class IRSystem;
class IRSystemWidget;
namespace Ui {
class frmSystStatus;
}

// The small window that hosts the link status display. While it is open the acquisition
// commands and the receive handler drive the display (AppState::SystemStatusVisible).
class SystemStatusWindow : public QWidget {
    Q_OBJECT
public:
    SystemStatusWindow(AppState& state, IRSystem& system, QWidget* parent = nullptr);
    ~SystemStatusWindow() override;

    // Shows the window (a fresh, idle display when it was closed).
    void load();
    // Closes the window.
    void unload();

    IRSystemWidget* statusWidget() const;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmSystStatus> ui_;
    AppState& state_;
    IRSystem& system_;
};

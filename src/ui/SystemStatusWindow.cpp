#include "SystemStatusWindow.h"

#include "IRSystemWidget.h"
#include "base/AppState.h"
#include "link/IRSystem.h"
#include "ui_SystemStatusWindow.h"

#include <QCloseEvent>
#include <QShowEvent>

SystemStatusWindow::SystemStatusWindow(AppState& state, IRSystem& system, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , ui_(std::make_unique<Ui::frmSystStatus>())
    , state_(state)
    , system_(system)
{
    ui_->setupUi(this);
    ui_->IRSystem1->setModel(&system_);
}

SystemStatusWindow::~SystemStatusWindow() = default;

IRSystemWidget* SystemStatusWindow::statusWidget() const { return ui_->IRSystem1; }

void SystemStatusWindow::load()
{
    show();
    raise();
    activateWindow();
}

void SystemStatusWindow::unload() { close(); }

void SystemStatusWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Restoring a minimised window shows it again too; only a real opening starts afresh.
    if (event->spontaneous() || state_.SystemStatusVisible)
        return;
    system_.reset();
    state_.SystemStatusVisible = true;
}

void SystemStatusWindow::closeEvent(QCloseEvent* event)
{
    state_.SystemStatusVisible = false;
    // A closed display animates nothing: its timers stop with it.
    system_.reset();
    event->accept();
}

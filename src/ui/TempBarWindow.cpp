#include "TempBarWindow.h"

#include "ModelBinder.h"
#include "TempBarWidget.h"
#include "tempbar/TempBar.h"
#include "tempbar/TempBarWindowController.h"
#include "tempbar/TempBarWindowModel.h"
#include "ui_TempBarWindow.h"

#include <QCloseEvent>

TempBarWindow::TempBarWindow(
    TempBar& bar, TempBarWindowModel& model, TempBarWindowController& controller, QWidget* parent)
    : QMainWindow(parent)
    , ui_(std::make_unique<Ui::frmTempBar>())
    , controller_(controller)
{
    ui_->setupUi(this);
    ui_->TempBar1->setModel(&bar);
    binder_ = new ModelBinder(model, *this);
    binder_->onTriggered(
        QStringLiteral("mnuConfigure"), [this] { controller_.mnuConfigure_Click(); });
    binder_->check();
}

TempBarWindow::~TempBarWindow() = default;

TempBarWidget* TempBarWindow::barWidget() const { return ui_->TempBar1; }

void TempBarWindow::closeEvent(QCloseEvent* event)
{
    // Closed by its title bar: the main window's menu and flag follow.
    controller_.Form_Unload();
    event->accept();
}

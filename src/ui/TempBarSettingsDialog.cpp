#include "TempBarSettingsDialog.h"

#include "DialogSync.h"
#include "ModelBinder.h"
#include "tempbar/TempBarSettingsController.h"
#include "tempbar/TempBarSettingsModel.h"
#include "ui_TempBarSettingsDialog.h"

#include <QShowEvent>

TempBarSettingsDialog::TempBarSettingsDialog(
    TempBarSettingsModel& model, TempBarSettingsController& controller, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::frmTempBarSettings>())
    , model_(model)
    , controller_(controller)
{
    ui_->setupUi(this);
    QFont heading = ui_->Label8->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.2);
    ui_->Label8->setFont(heading);

    binder_ = new ModelBinder(model_, *this);
    // Rendered at once, so a failed check's focus is back in its box before anything else.
    binder_->onClicked(QStringLiteral("cmdAccept"), [this] {
        controller_.cmdAccept_Click();
        render();
    });
    binder_->onClicked(QStringLiteral("cmdCancel"), [this] { controller_.cmdCancel_Click(); });
    binder_->check();
    connect(ui_->chkEnableAlarms, &QCheckBox::clicked, this, [this](bool on) {
        model_.chkEnableAlarms.setChecked(on);
        controller_.chkEnableAlarms_Click();
        render();
    });
    connect(ui_->chkAudibleAlarms, &QCheckBox::clicked, this, [this](bool on) {
        model_.chkAudibleAlarms.setChecked(on);
        controller_.chkAudibleAlarms_Click();
        render();
    });

    DialogSync::bindTextBoxes<TempBarSettingsController>(this, controller_,
        {
            { ui_->txtMaxTemp, model_.txtMaxTemp, &TempBarSettingsController::txtMaxTemp_KeyPress },
            { ui_->txtMinTemp, model_.txtMinTemp, &TempBarSettingsController::txtMinTemp_KeyPress },
            { ui_->txtHighLimit, model_.txtHighLimit,
                &TempBarSettingsController::txtHighLimit_KeyPress },
            { ui_->txtLowLimit, model_.txtLowLimit,
                &TempBarSettingsController::txtLowLimit_KeyPress },
        },
        [this] { render(); });
    connect(&controller_, &TempBarSettingsController::closeRequested, this,
        [this] { QDialog::done(QDialog::Accepted); });
    connect(&model_, &ViewModel::changed, this, &TempBarSettingsDialog::render);
}

TempBarSettingsDialog::~TempBarSettingsDialog() = default;

void TempBarSettingsDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        controller_.Form_Load();
    render();
    QDialog::showEvent(event);
}

void TempBarSettingsDialog::reject()
{
    // Escape or the title bar: the same write-back as every other close.
    controller_.Form_Unload();
    QDialog::reject();
}

void TempBarSettingsDialog::render()
{
    binder_->render();
    ui_->chkEnableAlarms->setChecked(model_.chkEnableAlarms.checked());
    ui_->chkAudibleAlarms->setChecked(model_.chkAudibleAlarms.checked());
    DialogSync::showTexts({
        { ui_->txtMaxTemp, &model_.txtMaxTemp },
        { ui_->txtMinTemp, &model_.txtMinTemp },
        { ui_->txtHighLimit, &model_.txtHighLimit },
        { ui_->txtLowLimit, &model_.txtLowLimit },
    });
    if (model_.focusRequests() != focusRequestsShown_) {
        focusRequestsShown_ = model_.focusRequests();
        DialogSync::moveFocus(*this, model_.focus());
    }
}

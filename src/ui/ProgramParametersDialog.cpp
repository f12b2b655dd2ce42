#include "ProgramParametersDialog.h"

#include "ModelBinder.h"
#include "link/ProgramParametersController.h"
#include "link/ProgramParametersModel.h"
#include "ui_ProgramParametersDialog.h"

#include <QLineEdit>
#include <QShowEvent>
#include <QSignalBlocker>

ProgramParametersDialog::ProgramParametersDialog(
    ProgramParametersModel& model, ProgramParametersController& controller, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::frmProgramParameters>())
    , model_(model)
    , controller_(controller)
{
    ui_->setupUi(this);
    for (QLabel* heading :
        { ui_->lblCommunicationsTitle, ui_->lblPcParametersTitle, ui_->lblMaxViewableTitle }) {
        QFont bold = heading->font();
        bold.setBold(true);
        heading->setFont(bold);
    }

    binder_ = new ModelBinder(model_, *this);
    binder_->onClicked(QStringLiteral("cmdOK"), [this] { accept(); });
    binder_->onClicked(
        QStringLiteral("cmdSearchForIr"), [this] { controller_.cmdSearchForIr_Click(); });
    binder_->check();
    connect(&model_, &ViewModel::changed, this, &ProgramParametersDialog::render);

    // Only the operator's picks count: filling the list on load must not change the port.
    connect(ui_->comCommPort, &QComboBox::activated, this, [this](int index) {
        commitDevice();
        model_.setCommPortListIndex(index);
        controller_.comCommPort_Click();
        render();
    });
    connect(ui_->comDevice, &QComboBox::activated, this, [this] { commitDevice(); });
    connect(
        ui_->comDevice->lineEdit(), &QLineEdit::editingFinished, this, [this] { commitDevice(); });
    connect(ui_->txtDataPoints, &QLineEdit::textEdited, this,
        [this](const QString& text) { model_.txtDataPoints.setCaption(text); });
    render();
}

ProgramParametersDialog::~ProgramParametersDialog() = default;

void ProgramParametersDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        controller_.Form_Load();
        render();
    }
    QDialog::showEvent(event);
}

void ProgramParametersDialog::accept()
{
    commitDevice();
    QDialog::accept();
}

void ProgramParametersDialog::commitDevice()
{
    const QString typed = ui_->comDevice->currentText();
    if (typed == model_.comDevice.caption())
        return;
    model_.comDevice.setCaption(typed);
    controller_.comDevice_Click();
    render();
}

void ProgramParametersDialog::render()
{
    binder_->render();
    {
        const QSignalBlocker block(ui_->comCommPort);
        ui_->comCommPort->setCurrentIndex(model_.commPortListIndex());
    }
    {
        const QSignalBlocker block(ui_->comDevice);
        QStringList items = model_.deviceItems();
        QStringList shown;
        for (int i = 0; i < ui_->comDevice->count(); ++i)
            shown << ui_->comDevice->itemText(i);
        if (shown != items) {
            ui_->comDevice->clear();
            ui_->comDevice->addItems(items);
        }
        if (ui_->comDevice->currentText() != model_.comDevice.caption())
            ui_->comDevice->setEditText(model_.comDevice.caption());
    }
    if (ui_->txtDataPoints->text() != model_.txtDataPoints.caption())
        ui_->txtDataPoints->setText(model_.txtDataPoints.caption());
}

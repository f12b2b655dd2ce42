#include "ControlTesterDialog.h"

#include "ModelBinder.h"
#include "app/ControlTesterController.h"
#include "app/ControlTesterModel.h"
#include "ui_ControlTesterDialog.h"

#include <QShowEvent>
#include <QSignalBlocker>

ControlTesterDialog::ControlTesterDialog(
    ControlTesterModel& model, ControlTesterController& controller, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::frmControlTester>())
    , model_(model)
    , controller_(controller)
{
    ui_->setupUi(this);
    QFont reading = ui_->lblReading->font();
    reading.setBold(true);
    reading.setPointSizeF(reading.pointSizeF() * 1.3);
    ui_->lblReading->setFont(reading);

    binder_ = new ModelBinder(model_, *this);
    using C = ControlTesterController;
    const std::pair<const char*, void (C::*)()> buttons[] = {
        { "cmdClearTemp", &C::cmdClearTemp_Click },
        { "cmdScanForIrSystem", &C::cmdScanForIrSystem_Click },
        { "cmdSenseTemperature", &C::cmdSenseTemperature_Click },
        { "cmdDownloadIRData", &C::cmdDownloadIRData_Click },
        { "cmdSetToIdle", &C::cmdSetToIdle_Click },
        { "cmdResetOldState", &C::cmdResetOldState_Click },
        { "cmdClose", &C::cmdClose_Click },
    };
    for (const auto& [name, handler] : buttons) {
        const auto h = handler;
        binder_->onClicked(QString::fromLatin1(name), [this, h] { (controller_.*h)(); });
    }
    const std::tuple<QCheckBox*, Control*, void (C::*)()> switches[] = {
        { ui_->chkAlarmLimits, &model_.chkAlarmLimits, &C::chkAlarmLimits_Click },
        { ui_->chkAutoRange, &model_.chkAutoRange, &C::chkAutoRange_Click },
        { ui_->chkDegC, &model_.chkDegC, &C::chkDegC_Click },
    };
    for (const auto& [box, control, handler] : switches) {
        Control* c = control;
        const auto h = handler;
        connect(box, &QCheckBox::clicked, this, [this, c, h](bool on) {
            c->setChecked(on);
            (controller_.*h)();
            render();
        });
    }
    connect(ui_->sldReading, &QSlider::valueChanged, this, [this](int value) {
        controller_.sldReading_Change(value);
        render();
    });
    connect(&controller_, &ControlTesterController::closeRequested, this,
        [this] { done(QDialog::Accepted); });
    connect(&model_, &ViewModel::changed, this, &ControlTesterDialog::render);
}

ControlTesterDialog::~ControlTesterDialog() = default;

void ControlTesterDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        controller_.Form_Load();
    render();
    QDialog::showEvent(event);
    // The arrow and page keys move the reading at once.
    if (!event->spontaneous())
        ui_->sldReading->setFocus(Qt::OtherFocusReason);
}

void ControlTesterDialog::done(int result)
{
    // CLOSE, Escape and the title bar alike put the bar and the display back.
    controller_.Form_Unload();
    QDialog::done(result);
}

void ControlTesterDialog::render()
{
    binder_->render();
    ui_->fraTempBar->setTitle(model_.fraTempBar.caption());
    ui_->fraIRSystem->setTitle(model_.fraIRSystem.caption());
    ui_->chkAlarmLimits->setChecked(model_.chkAlarmLimits.checked());
    ui_->chkAutoRange->setChecked(model_.chkAutoRange.checked());
    ui_->chkDegC->setChecked(model_.chkDegC.checked());
    const QSignalBlocker quiet(ui_->sldReading);
    ui_->sldReading->setRange(model_.readingMin(), model_.readingMax());
    ui_->sldReading->setValue(model_.reading());
    ui_->sldReading->setTickInterval(std::max(1, (model_.readingMax() - model_.readingMin()) / 10));
}

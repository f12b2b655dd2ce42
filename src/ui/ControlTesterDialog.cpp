#include "ControlTesterDialog.h"

#include "ModelBinder.h"
#include "app/ControlTesterController.h"
#include "app/ControlTesterModel.h"
#include "ui_ControlTesterDialog.h"

#include <QShowEvent>
#include <QSignalBlocker>
#include <functional>

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
    const std::pair<const char*, std::function<void()>> buttons[] = {
        { "cmdClearTemp", [this] { controller_.cmdClearTemp_Click(); } },
        { "cmdScanForIrSystem", [this] { controller_.cmdScanForIrSystem_Click(); } },
        { "cmdSenseTemperature", [this] { controller_.cmdSenseTemperature_Click(); } },
        { "cmdDownloadIRData", [this] { controller_.cmdDownloadIRData_Click(); } },
        { "cmdSetToIdle", [this] { controller_.cmdSetToIdle_Click(); } },
        { "cmdResetOldState", [this] { controller_.cmdResetOldState_Click(); } },
        { "cmdClose", [this] { controller_.cmdClose_Click(); } },
    };
    for (const auto& [name, handler] : buttons)
        binder_->onClicked(QString::fromLatin1(name), handler);
    binder_->check();
    const std::tuple<QCheckBox*, Control*, std::function<void()>> switches[] = {
        { ui_->chkAlarmLimits, &model_.chkAlarmLimits,
            [this] { controller_.chkAlarmLimits_Click(); } },
        { ui_->chkAutoRange, &model_.chkAutoRange, [this] { controller_.chkAutoRange_Click(); } },
        { ui_->chkDegC, &model_.chkDegC, [this] { controller_.chkDegC_Click(); } },
    };
    for (const auto& [box, control, handler] : switches) {
        connect(box, &QCheckBox::clicked, this, [this, c = control, h = handler](bool on) {
            c->setChecked(on);
            h();
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
    ui_->chkAlarmLimits->setChecked(model_.chkAlarmLimits.checked());
    ui_->chkAutoRange->setChecked(model_.chkAutoRange.checked());
    ui_->chkDegC->setChecked(model_.chkDegC.checked());
    const QSignalBlocker quiet(ui_->sldReading);
    ui_->sldReading->setRange(model_.readingMin(), model_.readingMax());
    ui_->sldReading->setValue(model_.reading());
    ui_->sldReading->setTickInterval(std::max(1, (model_.readingMax() - model_.readingMin()) / 10));
}

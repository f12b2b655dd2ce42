#include "GraphSettingsDialog.h"

#include "DialogSync.h"
#include "ModelBinder.h"
#include "chart/GraphSettingsController.h"
#include "chart/GraphSettingsModel.h"
#include "ui_GraphSettingsDialog.h"

#include <QShowEvent>

using Panel = GraphSettingsController;

GraphSettingsDialog::GraphSettingsDialog(
    GraphSettingsModel& model, GraphSettingsController& controller, QWidget* parent)
    : QDialog(parent)
    , ui_(std::make_unique<Ui::frmGraphSettings>())
    , model_(model)
    , controller_(controller)
{
    ui_->setupUi(this);
    ui_->comTimeUnits->addItems(GraphSettingsModel::timeUnits());

    binder_ = new ModelBinder(model_, *this);
    // Rendered at once, so a failed check's focus is back in its box before anything else.
    auto click = [this](const char* name, void (Panel::*handler)()) {
        binder_->onClicked(QString::fromLatin1(name), [this, handler] {
            (controller_.*handler)();
            render();
        });
    };
    click("cmdAccept", &Panel::cmdAccept_Click);
    click("cmdClose", &Panel::cmdClose_Click);
    click("cmdResetChartParameters", &Panel::cmdResetChartParameters_Click);
    click("XMinIncrementUp", &Panel::XMinIncrement_UpClick);
    click("XMinIncrementDown", &Panel::XMinIncrement_DownClick);
    click("XMaxIncrementUp", &Panel::XMaxIncrement_UpClick);
    click("XMaxIncrementDown", &Panel::XMaxIncrement_DownClick);
    click("YMinIncrementUp", &Panel::YMinIncrement_UpClick);
    click("YMinIncrementDown", &Panel::YMinIncrement_DownClick);
    click("YMaxIncrementUp", &Panel::YMaxIncrement_UpClick);
    click("YMaxIncrementDown", &Panel::YMaxIncrement_DownClick);
    click("XDomainScrollUp", &Panel::XDomainScroll_UpClick);
    click("XDomainScrollDown", &Panel::XDomainScroll_DownClick);
    click("YDomainScrollUp", &Panel::YDomainScroll_UpClick);
    click("YDomainScrollDown", &Panel::YDomainScroll_DownClick);
    binder_->check();

    connect(ui_->chkAutoRange, &QCheckBox::clicked, this, [this](bool on) {
        model_.chkAutoRange.setChecked(on);
        controller_.chkAutoRange_Click();
        render();
    });
    connect(ui_->chkDispLimits, &QCheckBox::clicked, this, [this](bool on) {
        model_.chkDispLimits.setChecked(on);
        controller_.chkDispLimits_Click();
        render();
    });
    connect(ui_->comTimeUnits, &QComboBox::activated, this, [this](int index) {
        controller_.comTimeUnits_Click(index);
        render();
    });

    DialogSync::bindTextBoxes<Panel>(this, controller_,
        {
            { ui_->txtMinX, model_.txtMinX, &Panel::txtMinX_KeyPress },
            { ui_->txtMaxX, model_.txtMaxX, &Panel::txtMaxX_KeyPress },
            { ui_->txtMinY, model_.txtMinY, &Panel::txtMinY_KeyPress },
            { ui_->txtMaxY, model_.txtMaxY, &Panel::txtMaxY_KeyPress },
            { ui_->txtYTitle, model_.txtYTitle, &Panel::txtYTitle_KeyPress },
        },
        [this] { render(); });
    connect(&controller_, &Panel::closeRequested, this, [this] { QDialog::hide(); });
    connect(&model_, &ViewModel::changed, this, &GraphSettingsDialog::render);
}

GraphSettingsDialog::~GraphSettingsDialog() = default;

void GraphSettingsDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        if (!controller_.loaded())
            controller_.Form_Load();
        controller_.Form_Activate();
    }
    render();
    QDialog::showEvent(event);
}

void GraphSettingsDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && controller_.loaded()) {
        controller_.Form_Activate();
        render();
    }
    QDialog::changeEvent(event);
}

void GraphSettingsDialog::reject()
{
    // Escape or the title bar: the same unload as CLOSE.
    controller_.Form_Unload();
    QDialog::reject();
}

void GraphSettingsDialog::render()
{
    binder_->render();
    ui_->chkAutoRange->setChecked(model_.chkAutoRange.checked());
    ui_->chkDispLimits->setChecked(model_.chkDispLimits.checked());
    if (ui_->comTimeUnits->currentIndex() != model_.timeUnitIndex())
        ui_->comTimeUnits->setCurrentIndex(model_.timeUnitIndex());
    DialogSync::showTexts({
        { ui_->txtMinX, &model_.txtMinX },
        { ui_->txtMaxX, &model_.txtMaxX },
        { ui_->txtMinY, &model_.txtMinY },
        { ui_->txtMaxY, &model_.txtMaxY },
        { ui_->txtYTitle, &model_.txtYTitle },
    });
    if (model_.focusRequests() != focusRequestsShown_) {
        focusRequestsShown_ = model_.focusRequests();
        DialogSync::moveFocus(*this, model_.focus());
    }
}

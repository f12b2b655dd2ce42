#include "GraphSettingsController.h"

#include "GraphSettingsModel.h"
#include "GraphingFunctions.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "base/Prompter.h"

namespace {
using Axis = ChartSurface::Axis;

QString boxText(double value) { return Numbers::Format(value, QStringLiteral("0.##")); }
float oneDecimal(double value) { return float(Numbers::Val(Numbers::Format(value, "0.0"))); }
} // namespace

GraphSettingsController::GraphSettingsController(AppState& state, GraphingFunctions& engine,
    MainWindowModel& main, GraphSettingsModel& model, Prompter& prompter,
    std::function<void()> clearChart, QObject* parent)
    : QObject(parent)
    , state_(state)
    , engine_(engine)
    , main_(main)
    , model_(model)
    , prompter_(prompter)
    , clearChart_(std::move(clearChart))
{
}

void GraphSettingsController::Form_Load()
{
    loaded_ = true;
    state_.GraphSettingsOpen = true;
    engine_.setPanel(this);
    model_.chkAutoRange.setChecked(main_.mnuAutoScaleYAxis.checked());
    model_.chkDispLimits.setChecked(main_.mnuDispLimits.checked());
    UpdatePanelWithCurrentChartSettings();
}

void GraphSettingsController::Form_Activate()
{
    const bool acquiring = !main_.mnuClearChart.enabled();
    for (Control* c : { &model_.comTimeUnits, &model_.XMinIncrement, &model_.XMaxIncrement,
             &model_.YMinIncrement, &model_.YMaxIncrement })
        c->setEnabled(!acquiring);
    SetInputsEnabled(!acquiring);
    model_.cmdResetChartParameters.setEnabled(!acquiring && engine_.ChartHasPoints());
}

void GraphSettingsController::Form_Unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    state_.GraphSettingsOpen = false;
    if (engine_.panel() == this)
        engine_.setPanel(nullptr);
}

void GraphSettingsController::UpdatePanelWithCurrentChartSettings()
{
    const ChartSurface& chart = engine_.chart();
    model_.txtYTitle.setCaption(chart.axisTitle(Axis::Y));
    model_.txtMinX.setCaption(boxText(chart.axisMin(Axis::X)));
    model_.txtMaxX.setCaption(boxText(chart.axisMax(Axis::X)));
    model_.txtMinY.setCaption(boxText(chart.axisMin(Axis::Y)));
    model_.txtMaxY.setCaption(boxText(chart.axisMax(Axis::Y)));
    const int unit = GraphSettingsModel::timeUnits().indexOf(chart.axisTitle(Axis::X));
    if (unit >= 0)
        model_.setTimeUnitIndex(unit);
}

void GraphSettingsController::SetAutoRangeChecked(bool checked)
{
    model_.chkAutoRange.setChecked(checked);
}

void GraphSettingsController::SetDisplayLimitsChecked(bool checked)
{
    model_.chkDispLimits.setChecked(checked);
}

void GraphSettingsController::SetInputsEnabled(bool enabled)
{
    for (Control* c : { &model_.comTimeUnits, &model_.txtMinX, &model_.txtMaxX, &model_.txtMinY,
             &model_.txtMaxY, &model_.cmdAccept })
        c->setEnabled(enabled);
}

bool GraphSettingsController::fail(const QString& text, Control& focus)
{
    prompter_.message(messageTitle(), text, Prompter::Buttons::Ok);
    model_.setFocus(focus.name());
    return false;
}

void GraphSettingsController::applyX(double xMin, double xMax, bool minChanged)
{
    if (engine_.IsXRangeOverWindow(xMin, xMax)) {
        const auto bound = minChanged ? engine_.CalcXMaxForWindow(xMin, xMax)
                                      : engine_.CalcXMinForWindow(xMin, xMax);
        if (bound)
            (minChanged ? xMax : xMin) = *bound;
        else // a spacing too wide for the window arithmetic: the range is taken as it stands
            engine_.ReportWindowOverflow();
    }
    {
        ChartBatch batch(engine_.chart());
        engine_.chart().setAxisMin(Axis::X, xMin);
        engine_.chart().setAxisMax(Axis::X, xMax);
    }
    engine_.CommonAxisUpdate();
}

void GraphSettingsController::applyY(double yMin, double yMax)
{
    {
        ChartBatch batch(engine_.chart());
        engine_.chart().setAxisMin(Axis::Y, yMin);
        engine_.chart().setAxisMax(Axis::Y, yMax);
    }
    engine_.CommonAxisUpdate();
}

void GraphSettingsController::txtMaxX_KeyPress(int keyAscii)
{
    if (keyAscii != KeyEnter)
        return;
    const QString text = model_.txtMaxX.caption();
    if (!Numbers::IsNumeric(text)) {
        fail(QStringLiteral("Please Enter A Numeric Value For X Max."), model_.txtMaxX);
        return;
    }
    const double max = Numbers::Val(text);
    const double min = engine_.chart().axisMin(Axis::X);
    if (max <= min) {
        fail(QStringLiteral("Please Enter An X Max Value That is Greater Than X Min."),
            model_.txtMaxX);
        return;
    }
    applyX(min, max, false);
}

void GraphSettingsController::txtMinX_KeyPress(int keyAscii)
{
    if (keyAscii != KeyEnter)
        return;
    const QString text = model_.txtMinX.caption();
    if (!Numbers::IsNumeric(text)) {
        fail(QStringLiteral("Please Enter A Numeric Value For X Min."), model_.txtMinX);
        return;
    }
    const double min = Numbers::Val(text);
    if (min < 0) {
        fail(QStringLiteral("Please Enter A Non-Negative Value for  X Min."), model_.txtMinX);
        return;
    }
    const double max = engine_.chart().axisMax(Axis::X);
    if (min >= max) {
        fail(QStringLiteral("Please Enter An X Min. Value That is Less Than X Max."),
            model_.txtMinX);
        return;
    }
    applyX(min, max, true);
}

void GraphSettingsController::txtMaxY_KeyPress(int keyAscii)
{
    if (keyAscii != KeyEnter)
        return;
    const QString text = model_.txtMaxY.caption();
    if (!Numbers::IsNumeric(text)) {
        fail(QStringLiteral("Please Enter A Numeric Value for Y Max."), model_.txtMaxY);
        return;
    }
    const double max = Numbers::Val(text);
    const double min = engine_.chart().axisMin(Axis::Y);
    if (max <= min) {
        fail(QStringLiteral("Please Enter A Y Max. Value That Is Greater Than Y Min."),
            model_.txtMaxY);
        return;
    }
    applyY(min, max);
}

void GraphSettingsController::txtMinY_KeyPress(int keyAscii)
{
    if (keyAscii != KeyEnter)
        return;
    const QString text = model_.txtMinY.caption();
    if (!Numbers::IsNumeric(text)) {
        fail(QStringLiteral("Please Enter A Numeric Value for Y Min."), model_.txtMinY);
        return;
    }
    const double min = Numbers::Val(text);
    const double max = engine_.chart().axisMax(Axis::Y);
    if (min >= max) {
        fail(QStringLiteral(" Please Enter A Y Min. Value That Less Than Y Max."), model_.txtMinY);
        return;
    }
    applyY(min, max);
}

void GraphSettingsController::txtYTitle_KeyPress(int keyAscii)
{
    if (keyAscii != KeyEnter)
        return;
    engine_.chart().setAxisTitle(Axis::Y, model_.txtYTitle.caption());
}

void GraphSettingsController::comTimeUnits_Click(int index)
{
    const QStringList units = GraphSettingsModel::timeUnits();
    if (index < 0 || index >= units.size())
        return;
    // The unit of the readings still to come: those on the chart keep their numbers. Entry 16
    // also makes a live strip chart re-anchor on the newest reading instead of paging.
    model_.setTimeUnitIndex(index);
    state_.TimeUnitIndex = qint16(index);
    state_.SettingsValues.timeUnit.text = QString::number(index);
    engine_.chart().setAxisTitle(Axis::X, units[index]);
}

void GraphSettingsController::chkAutoRange_Click()
{
    const bool on = model_.chkAutoRange.checked();
    main_.mnuAutoScaleYAxis.setChecked(on);
    state_.SettingsValues.yAutoRange.set(on);
    state_.SettingsValues.autoScaleY.set(on);
}

void GraphSettingsController::chkDispLimits_Click()
{
    const bool on = model_.chkDispLimits.checked();
    main_.mnuDispLimits.setChecked(on);
    state_.SettingsValues.limitLinesShown.set(on);
    if (on)
        engine_.ShowLimitMarkers();
    else
        engine_.HideLimitMarkers();
}

void GraphSettingsController::cmdAccept_Click()
{
    const QString minY = model_.txtMinY.caption();
    const QString maxY = model_.txtMaxY.caption();
    const QString minX = model_.txtMinX.caption();
    const QString maxX = model_.txtMaxX.caption();
    if (!Numbers::IsNumeric(minY)) {
        fail(QStringLiteral("Please Enter A Numeric Value for Y Min."), model_.txtMinY);
        return;
    }
    if (!Numbers::IsNumeric(maxY)) {
        fail(QStringLiteral("Please Enter a Numeric Value for Y Max."), model_.txtMaxY);
        return;
    }
    if (Numbers::Val(maxY) <= Numbers::Val(minY)) {
        fail(QStringLiteral("Please Enter A Y Max Value That is Greater Than The Y Min."),
            model_.txtMaxY);
        return;
    }
    if (!Numbers::IsNumeric(minX)) {
        fail(QStringLiteral("Please Enter A Numeric Value for X Min."), model_.txtMinX);
        return;
    }
    if (!Numbers::IsNumeric(maxX)) {
        fail(QStringLiteral("Please Enter A Numeric Value for X Max."), model_.txtMaxX);
        return;
    }
    if (Numbers::Val(maxX) <= Numbers::Val(minX)) {
        fail(QStringLiteral("Please Enter An X Max. Value That is Greater Than X Min."),
            model_.txtMaxX);
        return;
    }

    double xMin = Numbers::Val(minX);
    const double xMax = Numbers::Val(maxX);
    if (engine_.IsXRangeOverWindow(xMin, xMax)) {
        if (const auto windowMin = engine_.CalcXMinForWindow(xMin, xMax))
            xMin = *windowMin;
        else // a spacing too wide for the window arithmetic: the range is taken as typed
            engine_.ReportWindowOverflow();
    }
    const double yMin = Numbers::Val(minY);
    const double yMax = Numbers::Val(maxY);
    model_.txtMinX.setCaption(boxText(xMin));
    model_.txtMaxX.setCaption(boxText(xMax));
    {
        ChartBatch batch(engine_.chart());
        engine_.chart().setAxisMin(Axis::X, xMin);
        engine_.chart().setAxisMax(Axis::X, xMax);
        engine_.chart().setAxisMin(Axis::Y, yMin);
        engine_.chart().setAxisMax(Axis::Y, yMax);
        engine_.chart().setAxisTitle(Axis::Y, model_.txtYTitle.caption());
    }
    state_.SettingsValues.yAxisMax.text = Numbers::Format(yMax, QStringLiteral("#.#"));
    state_.SettingsValues.xAxisMax.text = Numbers::Format(xMax, QStringLiteral("#.#"));
    engine_.CommonAxisUpdate();
}

void GraphSettingsController::cmdClose_Click()
{
    Form_Unload();
    emit closeRequested();
}

void GraphSettingsController::cmdResetChartParameters_Click()
{
    if (clearChart_)
        clearChart_();
    UpdatePanelWithCurrentChartSettings();
}

// X bounds: a step from 0 goes to the smallest one-decimal step; a decrement at or below 0.5
// lands on 0 (never below).
void GraphSettingsController::IncrementValue(float& value)
{
    if (value == 0.0f)
        value = 0.1f;
    else
        value = oneDecimal(double(value) + 0.2 * double(value));
}

void GraphSettingsController::DecrementValue(float& value)
{
    if (value > 0.5f)
        value = oneDecimal(double(value) - 0.2 * double(value));
    else if (value > 0.0f)
        value = 0.0f;
}

// Y bounds: beyond ±0.2 a step is one fifth of the value, towards or away from zero; closer to
// zero it moves by 0.2, stopping at 0 before changing sign.
void GraphSettingsController::IncrementValueYAxis(float& value)
{
    const double v = double(value);
    if (value > 0.2f)
        value = oneDecimal(v + 0.2 * v);
    else if (value < -0.2f)
        value = oneDecimal(v - 0.2 * v);
    else if (value < 0.0f)
        value = 0.0f;
    else
        value = oneDecimal(v + 0.2);
}

void GraphSettingsController::DecrementValueYAxis(float& value)
{
    const double v = double(value);
    if (value > 0.2f)
        value = oneDecimal(v - 0.2 * v);
    else if (value > 0.0f)
        value = 0.0f;
    else if (value >= -0.5f)
        value = oneDecimal(v - 0.2);
    else
        value = oneDecimal(v + 0.2 * v);
}

void GraphSettingsController::stepX(bool minimum, bool up)
{
    const ChartSurface& chart = engine_.chart();
    const double min = chart.axisMin(Axis::X);
    const double max = chart.axisMax(Axis::X);
    float value = float(minimum ? min : max);
    if (up)
        IncrementValue(value);
    else
        DecrementValue(value);
    const double stepped = double(value);
    if (minimum ? stepped >= max : stepped <= min)
        return; // a minimum never reaches its maximum
    if (minimum)
        applyX(stepped, max, true);
    else
        applyX(min, stepped, false);
}

void GraphSettingsController::stepY(bool minimum, bool up)
{
    const ChartSurface& chart = engine_.chart();
    const double min = chart.axisMin(Axis::Y);
    const double max = chart.axisMax(Axis::Y);
    float value = float(minimum ? min : max);
    if (up)
        IncrementValueYAxis(value);
    else
        DecrementValueYAxis(value);
    const double stepped = double(value);
    if (minimum ? stepped >= max : stepped <= min)
        return;
    if (minimum)
        applyY(stepped, max);
    else
        applyY(min, stepped);
}

void GraphSettingsController::XMinIncrement_UpClick() { stepX(true, true); }
void GraphSettingsController::XMinIncrement_DownClick() { stepX(true, false); }
void GraphSettingsController::XMaxIncrement_UpClick() { stepX(false, true); }
void GraphSettingsController::XMaxIncrement_DownClick() { stepX(false, false); }
void GraphSettingsController::YMinIncrement_UpClick() { stepY(true, true); }
void GraphSettingsController::YMinIncrement_DownClick() { stepY(true, false); }
void GraphSettingsController::YMaxIncrement_UpClick() { stepY(false, true); }
void GraphSettingsController::YMaxIncrement_DownClick() { stepY(false, false); }
void GraphSettingsController::XDomainScroll_UpClick()
{
    engine_.ScrollXForward();
    UpdatePanelWithCurrentChartSettings();
}

void GraphSettingsController::XDomainScroll_DownClick()
{
    engine_.ScrollXBack();
    UpdatePanelWithCurrentChartSettings();
}

void GraphSettingsController::YDomainScroll_UpClick()
{
    engine_.ScrollYUp();
    UpdatePanelWithCurrentChartSettings();
}

void GraphSettingsController::YDomainScroll_DownClick()
{
    engine_.ScrollYDown();
    UpdatePanelWithCurrentChartSettings();
}

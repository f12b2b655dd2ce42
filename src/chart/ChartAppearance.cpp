#include "ChartAppearance.h"

#include "base/MainWindowModel.h"

namespace {
using Values = ChartAppearance::Values;
// Chart background, plot background, X axis, Y axis, X grid, Y grid, readings.
const Values StandardValues { 0xE6D8AD, 0xFFFFFF, 0x000000, 0x000000, 0x000000, 0x000000,
    0x004080 };
const Values ScopeValues { 0x000000, 0x009300, 0x00FFFF, 0x00FFFF, 0x64FFB1, 0x64FFB1, 0x4AFFFF };
const Values PlainValues { 0xFFFFFF, 0xFFFFFF, 0x000000, 0x000000, 0x000000, 0x000000, 0x0000FF };
} // namespace

const ChartAppearance::Values& ChartAppearance::storedValues(Scheme scheme)
{
    switch (scheme) {
    case Scheme::Scope:
        return ScopeValues;
    case Scheme::Plain:
        return PlainValues;
    case Scheme::Standard:
        break;
    }
    return StandardValues;
}

ChartAppearance::ChartAppearance(ChartSurface& chart, MainWindowModel& main)
    : chart_(chart)
    , main_(main)
{
    check(Scheme::Standard);
    apply(Scheme::Standard);
}

void ChartAppearance::apply(Scheme scheme)
{
    const Values& values = storedValues(scheme);
    ChartBatch batch(chart_);
    for (int i = 0; i < ChartSurface::ColorCount; ++i)
        chart_.setColor(ChartSurface::Color(i), Colors::fromBgr(values[size_t(i)]));
}

void ChartAppearance::check(Scheme scheme)
{
    main_.mnuStandardChart.setChecked(scheme == Scheme::Standard);
    main_.mnuScopeChart.setChecked(scheme == Scheme::Scope);
    main_.mnuPlainChart.setChecked(scheme == Scheme::Plain);
}

void ChartAppearance::ApplyStandardAppearance() { apply(Scheme::Standard); }
void ChartAppearance::ApplyScopeAppearance() { apply(Scheme::Scope); }
void ChartAppearance::ApplyPlainAppearance() { apply(Scheme::Plain); }

void ChartAppearance::mnuStandardChart_Click()
{
    if (main_.mnuStandardChart.checked())
        return;
    check(Scheme::Standard);
    ApplyStandardAppearance();
}

void ChartAppearance::mnuScopeChart_Click()
{
    if (main_.mnuScopeChart.checked()) {
        check(Scheme::Standard);
        ApplyStandardAppearance();
        return;
    }
    check(Scheme::Scope);
    ApplyScopeAppearance();
}

void ChartAppearance::mnuPlainChart_Click()
{
    if (main_.mnuPlainChart.checked()) {
        check(Scheme::Standard);
        ApplyStandardAppearance();
        return;
    }
    check(Scheme::Plain);
    ApplyPlainAppearance();
}

void ChartAppearance::ApplySettingsEntry(const QString& entry)
{
    Scheme scheme;
    if (entry == QLatin1String("0"))
        scheme = Scheme::Standard;
    else if (entry == QLatin1String("1"))
        scheme = Scheme::Plain;
    else if (entry == QLatin1String("2"))
        scheme = Scheme::Scope;
    else
        return;
    check(scheme);
    apply(scheme);
}

ChartAppearance::Scheme ChartAppearance::current() const
{
    if (main_.mnuPlainChart.checked())
        return Scheme::Plain;
    if (main_.mnuScopeChart.checked())
        return Scheme::Scope;
    return Scheme::Standard;
}

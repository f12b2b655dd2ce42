#pragma once

#include "ChartSurface.h"

#include <QString>
#include <array>

class MainWindowModel;

// The three colour schemes of the chart (CHART → APPEARANCE SELECT). Each scheme sets the same
// seven colour properties of the chart, in one redraw; the limit lines and the cursor keep
// their own colours. The checked menu item is the current scheme: exactly one of the three is
// checked, and clicking the checked OSCILLISCOPE or PLAIN item goes back to STANDARD.
class ChartAppearance {
public:
    // Numbered as the appearance setting (entry 18) stores them.
    enum class Scheme { Standard = 0, Plain = 1, Scope = 2 };
    // The stored colour values, blue-green-red from the high byte down, in the order of
    // ChartSurface::Color.
    using Values = std::array<quint32, ChartSurface::ColorCount>;
    static const Values& storedValues(Scheme scheme);

    // Checks STANDARD and applies it: the chart's design-time look.
    ChartAppearance(ChartSurface& chart, MainWindowModel& main);

    void ApplyStandardAppearance();
    void ApplyScopeAppearance();
    void ApplyPlainAppearance();

    void mnuStandardChart_Click();
    void mnuScopeChart_Click();
    void mnuPlainChart_Click();

    // Settings entry 18: "0", "1" or "2" selects that scheme (whichever was checked before);
    // any other text leaves the appearance as it is.
    void ApplySettingsEntry(const QString& entry);
    // The scheme of the checked menu item (STANDARD when none is).
    Scheme current() const;

private:
    void apply(Scheme scheme);
    void check(Scheme scheme);

    ChartSurface& chart_;
    MainWindowModel& main_;
};

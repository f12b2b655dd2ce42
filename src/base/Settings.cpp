#include "Settings.h"

#include "Numbers.h"

double SettingsNumber::value() const { return Numbers::Val(text); }

std::optional<qint16> SettingsNumber::toInt16() const { return Numbers::ToInt16(value()); }

std::optional<qint16> SettingsNumber::strictInt16() const { return Numbers::TextToInt16(text); }

bool SettingsSwitch::on() const { return text == QLatin1String("1"); }

bool SettingsSwitch::valueIsOne() const { return Numbers::Val(text) == 1.0; }

void SettingsSwitch::set(bool on) { text = on ? QStringLiteral("1") : QStringLiteral("0"); }

bool AudibleAlarmSwitch::beepOn() const
{
    const QString trimmed = text.trimmed();
    if (trimmed.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    if (!Numbers::IsNumeric(trimmed))
        return false;
    return Numbers::Val(trimmed) != 0.0;
}

namespace {

// How a line is taken from the file: numbers, texts and switches keep the line's text (their
// types read it); the fixed entry ignores it.
enum class Rule { Number, Text, Switch, Fixed };

struct Line {
    Rule rule;
    const QString* (*read)(const Settings&);
    QString* (*write)(Settings&);
};

template <auto Field> Line entry(Rule rule)
{
    return { rule, [](const Settings& s) { return &(s.*Field).text; },
        [](Settings& s) { return &(s.*Field).text; } };
}

// File line k + 1 holds entry k.
const std::array<Line, Settings::Count> Table = { {
    entry<&Settings::yAxisMax>(Rule::Number),
    entry<&Settings::yAxisMin>(Rule::Number),
    entry<&Settings::xAxisMax>(Rule::Number),
    entry<&Settings::xAxisMin>(Rule::Number),
    entry<&Settings::spare4>(Rule::Text),
    entry<&Settings::spare5>(Rule::Text),
    entry<&Settings::yAxisTitle>(Rule::Text),
    entry<&Settings::xAxisTitle>(Rule::Text),
    entry<&Settings::yAutoRange>(Rule::Switch),
    entry<&Settings::autoCompressed>(Rule::Switch),
    entry<&Settings::realTimeGraph>(Rule::Switch),
    entry<&Settings::tempBarMax>(Rule::Number),
    entry<&Settings::tempBarMin>(Rule::Number),
    entry<&Settings::highAlarmLimit>(Rule::Number),
    entry<&Settings::lowAlarmLimit>(Rule::Number),
    entry<&Settings::alarmLimitsOn>(Rule::Switch),
    entry<&Settings::timeUnit>(Rule::Number),
    entry<&Settings::autoScaleY>(Rule::Switch),
    entry<&Settings::appearance>(Rule::Text),
    entry<&Settings::commPort>(Rule::Number),
    { Rule::Fixed, nullptr, nullptr },
    entry<&Settings::limitLinesShown>(Rule::Switch),
    entry<&Settings::audibleAlarms>(Rule::Switch),
} };

} // namespace

QString Settings::line(int entry) const
{
    const Line& l = Table.at(size_t(entry));
    if (l.rule == Rule::Fixed)
        return fixedEntry();
    return *l.read(*this);
}

void Settings::setLine(int entry, const QString& text)
{
    const Line& l = Table.at(size_t(entry));
    if (l.rule != Rule::Fixed)
        *l.write(*this) = text;
}

Settings::Lines Settings::lines() const
{
    Lines all;
    for (int i = 0; i < Count; ++i)
        all[size_t(i)] = line(i);
    return all;
}

void Settings::setLines(const Lines& all)
{
    for (int i = 0; i < Count; ++i)
        setLine(i, all[size_t(i)]);
}

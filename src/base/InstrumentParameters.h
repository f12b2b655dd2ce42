#pragma once

#include <QString>
#include <array>

class MainWindowModel;

// The instrument's sampling interval as its parameter block gave it, in seconds.
class SamplingInterval {
public:
    // Never reported (empty), reported as none or given up on ("NO-INT"), or a value.
    enum class State { Unknown, None, Given };

    SamplingInterval() = default;
    // From the text shown for it: "" is unknown, "NO-INT" none, anything else given.
    explicit SamplingInterval(const QString& text);
    static SamplingInterval none() { return SamplingInterval(NoIntervalText()); }
    static QString NoIntervalText() { return QStringLiteral("NO-INT"); }

    State state() const { return state_; }
    bool isUnknown() const { return state_ == State::Unknown; }
    bool isNone() const { return state_ == State::None; }
    bool isGiven() const { return state_ == State::Given; }
    // As shown: "", "NO-INT" or the value as the instrument sent it.
    const QString& text() const { return text_; }
    // The numeric value of the text (longest numeric prefix); 0 unless given.
    double seconds() const;
    // True when the whole text is a number.
    bool isNumeric() const;

private:
    State state_ = State::Unknown;
    QString text_;
};

// The instrument's parameters, filled by the parameter block loader (and by a loaded plot, which
// brings its units and interval). The main window's parameter labels show them; nothing reads
// the labels back.
struct InstrumentParameters {
    static constexpr int ParameterFieldCount = 11;
    static constexpr int SystemParameterTextCount = 9;
    static constexpr int OtherValueCount = 7;

    // The block's lines as received, the units line first.
    std::array<QString, ParameterFieldCount> ParameterFields;
    // The first nine lines without control characters, for the headings of saved files.
    std::array<QString, SystemParameterTextCount> SystemParameterText;

    QString units; // lblSystParameters(1), empty until a block or a plot gives them
    SamplingInterval interval; // lblSystParameters(2)
    std::array<QString, OtherValueCount> otherValues; // lblSystParameters(3) to (9)

    // Puts the values in the parameter labels.
    void show(MainWindowModel& main) const;
};

#pragma once

#include <QString>
#include <array>
#include <optional>

// The user settings, one named field per line of "Settings.dat". Every entry keeps the text the
// file held or a dialog wrote, because that text is what the next save writes back ("85.0" stays
// "85.0"); the entry's type says how the program reads it. A file is not trusted: whatever an
// entry holds, its readings are defined (a number that is no number reads as 0, a switch that is
// not "1" reads as off).

// A text entry, used as it stands.
struct SettingsText {
    QString text;
};

// A number entry.
struct SettingsNumber {
    QString text;
    // The longest numeric prefix, 0 when there is none.
    double value() const;
    // value() rounded half to even; none when it does not fit 16 bits.
    std::optional<qint16> toInt16() const;
    // The whole text converted strictly, as the port number is: none for "two" or "2x".
    std::optional<qint16> strictInt16() const;
};

// A switch stored as "1" (on) or "0" (off).
struct SettingsSwitch {
    QString text;
    // Only "1" is on.
    bool on() const;
    // The numeric reading: on when the value is 1, so "1.0" is on too.
    bool valueIsOne() const;
    void set(bool on);
    // Anything but "1" becomes "0".
    void normalize() { set(on()); }
};

// The audible alarm switch, read two ways: the alarm box shows it checked for "1" only
// (`on()`), the beep timer takes the text as a boolean ("1", "-1", "True"...).
struct AudibleAlarmSwitch : SettingsSwitch {
    bool beepOn() const;
};

struct Settings {
    static constexpr int Count = 23;

    SettingsNumber yAxisMax; // entry 0
    SettingsNumber yAxisMin; // entry 1
    SettingsNumber xAxisMax; // entry 2
    SettingsNumber xAxisMin; // entry 3
    SettingsText spare4; // entry 4, kept but never applied
    SettingsText spare5; // entry 5, kept but never applied
    SettingsText yAxisTitle; // entry 6
    SettingsText xAxisTitle; // entry 7, kept but never applied (the X title follows entry 16)
    SettingsSwitch yAutoRange; // entry 8
    SettingsSwitch autoCompressed; // entry 9, plotting mode
    SettingsSwitch realTimeGraph; // entry 10, plotting mode
    SettingsNumber tempBarMax; // entry 11
    SettingsNumber tempBarMin; // entry 12
    SettingsNumber highAlarmLimit; // entry 13
    SettingsNumber lowAlarmLimit; // entry 14
    SettingsSwitch alarmLimitsOn; // entry 15
    SettingsNumber timeUnit; // entry 16: 0 seconds, 1 minutes, 2 hours, 3 days
    SettingsSwitch autoScaleY; // entry 17, the menu's state
    SettingsText appearance; // entry 18: "0" standard, "1" plain, "2" scope
    SettingsNumber commPort; // entry 19, serial port number
    // Entry 20 is always written as "300" and never read.
    static QString fixedEntry() { return QStringLiteral("300"); }
    SettingsSwitch limitLinesShown; // entry 21
    AudibleAlarmSwitch audibleAlarms; // entry 22

    // The text of file line `entry` + 1, as it is written.
    QString line(int entry) const;
    // Takes the text of file line `entry` + 1 by that entry's rule.
    void setLine(int entry, const QString& text);

    using Lines = std::array<QString, Count>;
    Lines lines() const;
    void setLines(const Lines& lines);
};

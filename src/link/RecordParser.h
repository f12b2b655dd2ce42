#pragma once

#include "RecordReader.h"

#include <QString>
#include <array>
#include <optional>

// What a finished record is and what it carries, against the acquisition mode. Pure functions:
// no widgets, no files, no state.

// A real-time reading as the instrument sends it: "  1234   DEG F" or the short "  75".
struct RealTimeReading {
    bool valid = false;
    // Infinite for a number beyond the range of a double.
    double value = 0.0;
};
RealTimeReading ParseRealTimeReading(const QString& line);
// The value part of a parameter line: the text after the last run of two or more blanks,
// trimmed; the whole line trimmed when there is no such run.
QString ParameterValuePart(const QString& field);
// The fields of a parameter block: its lines cut at each line feed (the line feed dropped, text
// after the last one unused), lines under 5 characters skipped, the first 11 taken in order;
// the seventh reads "BOGUS" when it holds a "-". Nothing when the block has fewer than 11.
constexpr int ParameterBlockFieldCount = 11;
std::optional<std::array<QString, ParameterBlockFieldCount>> ParameterBlockFields(
    const QString& block);
// How a downloaded record is laid out in the store: "#001   75   DEG F" becomes
// "<tab>#001<tab>75<tab>DEG F", one line per record.
QString FormatStoredRecord(const QString& record);

// The check marks of the two acquisition commands.
struct AcquisitionMode {
    bool realTime = false;
    bool download = false;
};

enum class RecordKind {
    Blank, // no characters
    StoredPoint, // contains "#"
    ParameterBlock, // a vertical tab was seen, and no "#"
    Reading, // anything else
};

// A record that does not fit the mode halts the acquisition.
enum class ModeError {
    None,
    StoredWhileRealTime, // a stored point while sensing
    ReadingWhileDownload, // neither empty, nor a bare CR LF, nor a stored point while downloading
};

// Why a record in real-time mode gives no temperature.
enum class ReadingFault {
    None,
    NotNumeric,
    OutOfRange, // numeric, but its rounded value does not fit 16 bits
};

struct ParsedRecord {
    RecordKind kind = RecordKind::Blank;
    ModeError modeError = ModeError::None;
    // In real-time mode, for every record kind (a parameter block's reading is its first field):
    // the value rounded half to even, or nothing and the fault.
    std::optional<qint16> temperature;
    ReadingFault fault = ReadingFault::None;
};

ParsedRecord ParseRecord(const Record& record, AcquisitionMode mode);

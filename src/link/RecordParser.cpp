#include "RecordParser.h"

#include "base/Numbers.h"
#include "base/StringUtils.h"
#include "store/DataPointStore.h"

#include <QRegularExpression>

using namespace StringUtils;

namespace {
const QString TwoSpaces = QStringLiteral("  ");
} // namespace

RealTimeReading ParseRealTimeReading(const QString& line)
{
    RealTimeReading reading;
    if (line.isEmpty())
        return reading;
    QString field = line;
    if (line.size() >= 13) {
        const QString tabbed = SpacesToTabs(line);
        const qsizetype tab = tabbed.indexOf(Tab);
        field = tab < 0 ? tabbed : tabbed.left(tab);
    }
    reading.valid = Numbers::IsNumeric(field);
    // A number too large for a double stays infinite, out of range, rather than reading 0.
    reading.value = Numbers::ValUnbounded(field);
    return reading;
}

QString ParameterValuePart(const QString& field)
{
    const QString text = StripControlCharacters(field);
    qsizetype runEnd = -1;
    for (qsizetype i = text.size() - 1; i > 0; --i) {
        if (text.at(i) == QLatin1Char(' ') && text.at(i - 1) == QLatin1Char(' ')) {
            runEnd = i + 1;
            break;
        }
    }
    return (runEnd < 0 ? text : text.mid(runEnd)).trimmed();
}

std::optional<std::array<QString, ParameterBlockFieldCount>> ParameterBlockFields(
    const QString& block)
{
    std::array<QString, ParameterBlockFieldCount> fields;
    int count = 0;
    qsizetype start = 0;
    for (qsizetype lf = block.indexOf(Lf); lf >= 0 && count < ParameterBlockFieldCount;
         start = lf + 1, lf = block.indexOf(Lf, start)) {
        if (lf - start < 5)
            continue;
        QString field = block.mid(start, lf - start);
        if (count == 6 && field.contains(QLatin1Char('-')))
            field = QStringLiteral("BOGUS");
        fields[count++] = std::move(field);
    }
    if (count < ParameterBlockFieldCount)
        return std::nullopt;
    return fields;
}

QString FormatStoredRecord(const QString& record)
{
    if (record == TwoSpaces)
        return CrLf + Tab;
    static const QRegularExpression blankRun(QStringLiteral(" {2,}"));
    static const QRegularExpression columnBreak(QStringLiteral("[ \\t]*\\t[ \\t]*"));
    QString out = record;
    out.replace(QLatin1Char('#'), QStringLiteral("\t#"));
    out.replace(blankRun, QStringLiteral("\t"));
    out.replace(columnBreak, QStringLiteral("\t"));
    while (out.endsWith(Tab))
        out.chop(1);
    return out;
}

ParsedRecord ParseRecord(const Record& record, AcquisitionMode mode)
{
    ParsedRecord parsed;
    const QString& text = record.text;
    const bool stored = IsStoredDataPoint(text);
    if (text.isEmpty())
        parsed.kind = RecordKind::Blank;
    else if (stored)
        parsed.kind = RecordKind::StoredPoint;
    else if (record.parameterBlock)
        parsed.kind = RecordKind::ParameterBlock;
    else
        parsed.kind = RecordKind::Reading;

    if (stored && mode.realTime)
        parsed.modeError = ModeError::StoredWhileRealTime;
    else if (!stored && mode.download && !text.isEmpty() && text != TwoSpaces)
        parsed.modeError = ModeError::ReadingWhileDownload;

    if (mode.realTime && parsed.modeError == ModeError::None) {
        const RealTimeReading reading = ParseRealTimeReading(text);
        parsed.temperature = Numbers::ToInt16(reading.value);
        if (!reading.valid) {
            parsed.fault = ReadingFault::NotNumeric;
            parsed.temperature.reset();
        } else if (!parsed.temperature) {
            parsed.fault = ReadingFault::OutOfRange;
        }
    }
    return parsed;
}

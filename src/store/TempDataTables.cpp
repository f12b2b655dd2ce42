#include "TempDataTables.h"

#include "TextExport.h"
#include "base/AppState.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"

#include <QFile>

namespace TempData {

std::optional<QVector<double>> ReadNumericLines(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // Pass one: the line count, which must fit 16 bits.
    int lines = 0;
    while (!file.atEnd()) {
        file.readLine();
        if (++lines > MaxLines)
            return std::nullopt;
    }
    if (!file.seek(0))
        return std::nullopt;
    QVector<double> values;
    values.reserve(lines);
    while (!file.atEnd()) {
        QByteArray raw = file.readLine();
        while (raw.endsWith('\n') || raw.endsWith('\r'))
            raw.chop(1);
        if (raw.isEmpty() || raw.startsWith('\t'))
            continue;
        const QString line = QString::fromLatin1(raw);
        if (Numbers::IsNumeric(line))
            values.append(Numbers::Val(line));
    }
    return values;
}

} // namespace TempData

namespace {
std::optional<QVector<double>> exportAndRead(const AppState& state, const TextExport& text)
{
    const QString path = state.filePath(QString::fromLatin1(TempData::FileName));
    if (!text.CreateTextFile2(path, false))
        return std::nullopt;
    return TempData::ReadNumericLines(path);
}
} // namespace

TempDataValues ReadTempDataValues(const AppState& state, const TextExport& text)
{
    TempDataValues result;
    const auto values = exportAndRead(state, text);
    if (!values || values->isEmpty())
        return result;
    result.values = *values;
    result.count = qint16(values->size());
    return result;
}

TempDataTable ReadTempDataTable(
    const AppState& state, const MainWindowModel& main, const TextExport& text)
{
    TempDataTable result;
    const auto values = exportAndRead(state, text);
    if (!values || values->isEmpty())
        return result;
    const double interval = Numbers::Val(main.lblSystParameters(2).caption());
    result.rows.reserve(values->size());
    for (qsizetype row = 0; row < values->size(); ++row)
        result.rows.append({ double(row) * interval, values->at(row) });
    result.count = qint16(values->size());
    return result;
}

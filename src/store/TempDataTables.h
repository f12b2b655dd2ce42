#pragma once

#include <QString>
#include <QVector>
#include <optional>

struct AppState;
class MainWindowModel;
class TextExport;

// The numeric tables of the store, built by exporting it to "Tempdata.dat" and reading the
// file back. Only lines that are numbers as a whole count: header lines (led by a tab), stored
// points with their "#" and columns, empty locations and text stamps are left out.
namespace TempData {
constexpr const char* FileName = "Tempdata.dat";
// Counts are 16-bit: a file of more lines than this ends the read with nothing.
constexpr int MaxLines = 32767;

// The readings of a text file: tab-led and blank lines skipped, a strict numeric test and a
// lenient conversion. Empty when the file cannot be read or has more than MaxLines lines.
std::optional<QVector<double>> ReadNumericLines(const QString& path);
} // namespace TempData

struct TempDataValues {
    QVector<double> values;
    qint16 count = 0;
    qint16 status = 0;
};

struct TempDataRow {
    double time = 0.0; // row × the sampling interval
    double temperature = 0.0;
};

struct TempDataTable {
    QVector<TempDataRow> rows;
    qint16 count = 0;
    qint16 status = 0;
};

TempDataValues ReadTempDataValues(const AppState& state, const TextExport& text);
// Row k has the time k × the value of the interval label (0 when it holds no number).
TempDataTable ReadTempDataTable(
    const AppState& state, const MainWindowModel& main, const TextExport& text);

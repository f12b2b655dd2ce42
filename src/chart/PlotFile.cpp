#include "PlotFile.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {
const QByteArray Signature = "TALAVEX PLOT 1";
const QByteArray Crlf = "\r\n";

void appendNumber(QByteArray& out, double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr - buffer);
}

// One line of text for the trailer: line breaks inside a title would shift the lines after it.
QByteArray oneLine(const QString& text)
{
    QString line = text;
    line.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
    return line.toUtf8();
}

bool toNumber(const QByteArray& text, double* value)
{
    const char* begin = text.constData();
    const char* end = begin + text.size();
    const auto result = std::from_chars(begin, end, *value);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(*value);
}

// Splits at LF, dropping a CR before it; a final line without a line end counts as well.
QList<QByteArray> splitLines(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    for (QByteArray& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    return lines;
}

// "KEY a b": the values after the key, or nothing when the key differs.
bool keyed(const QByteArray& line, const char* key, int count, double* values)
{
    const QList<QByteArray> parts = line.split(' ');
    if (parts.size() != count + 1 || parts[0] != key)
        return false;
    for (int i = 0; i < count; ++i) {
        if (!toNumber(parts[i + 1], &values[i]))
            return false;
    }
    return true;
}

bool fail(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return false;
}
} // namespace

bool PlotData::operator==(const PlotData& o) const
{
    return x == o.x && y == o.y && xMin == o.xMin && xMax == o.xMax && yMin == o.yMin
        && yMax == o.yMax && timeUnit == o.timeUnit && xTitle == o.xTitle && yTitle == o.yTitle
        && unitsCaption == o.unitsCaption && intervalCaption == o.intervalCaption;
}

namespace PlotFile {

QByteArray Render(const PlotData& plot)
{
    QByteArray out;
    const std::size_t count = std::min(plot.x.size(), plot.y.size());
    out.reserve(qsizetype(count * 20 + 256));
    out += Signature + Crlf;
    out += "TIMEUNIT " + QByteArray::number(plot.timeUnit) + Crlf;
    out += "XAXIS ";
    appendNumber(out, plot.xMin);
    out += ' ';
    appendNumber(out, plot.xMax);
    out += Crlf + "YAXIS ";
    appendNumber(out, plot.yMin);
    out += ' ';
    appendNumber(out, plot.yMax);
    out += Crlf + "POINTS " + QByteArray::number(qulonglong(count)) + Crlf;
    for (std::size_t i = 0; i < count; ++i) {
        appendNumber(out, plot.x[i]);
        out += ' ';
        appendNumber(out, plot.y[i]);
        out += Crlf;
    }
    out += "END" + Crlf;
    out += Crlf + oneLine(plot.xTitle) + Crlf;
    out += Crlf + oneLine(plot.yTitle) + Crlf;
    out += oneLine(plot.unitsCaption) + Crlf;
    out += oneLine(plot.intervalCaption) + Crlf;
    return out;
}

WholeFile::Result Write(const QString& path, const PlotData& plot)
{
    return WholeFile::Write(path, Render(plot));
}

bool Parse(const QByteArray& text, PlotData* plot, QString* error)
{
    const QList<QByteArray> lines = splitLines(text);
    if (lines.isEmpty() || lines[0] != Signature)
        return fail(error, QStringLiteral("IT IS NOT A PLOT FILE."));
    auto damaged = [error](const char* what) {
        return fail(
            error, QStringLiteral("THE PLOT FILE IS DAMAGED (%1).").arg(QLatin1String(what)));
    };
    if (lines.size() < 6)
        return damaged("TOO SHORT");

    PlotData p;
    double unit = 0;
    if (!keyed(lines[1], "TIMEUNIT", 1, &unit) || unit != std::floor(unit) || unit < -32768
        || unit > 32767)
        return damaged("TIME UNIT");
    p.timeUnit = qint16(unit);
    double range[2];
    if (!keyed(lines[2], "XAXIS", 2, range))
        return damaged("X AXIS");
    p.xMin = range[0];
    p.xMax = range[1];
    if (!keyed(lines[3], "YAXIS", 2, range))
        return damaged("Y AXIS");
    p.yMin = range[0];
    p.yMax = range[1];
    double countValue = 0;
    if (!keyed(lines[4], "POINTS", 1, &countValue) || countValue < 0
        || countValue != std::floor(countValue))
        return damaged("POINT COUNT");
    // Every point takes a line of its own, so a count beyond the lines present is damage.
    if (countValue > double(lines.size() - 6))
        return damaged("MISSING POINTS");
    const qsizetype count = qsizetype(countValue);
    p.x.reserve(std::size_t(count));
    p.y.reserve(std::size_t(count));
    for (qsizetype i = 0; i < count; ++i) {
        const QByteArray& line = lines[5 + i];
        const qsizetype blank = line.indexOf(' ');
        double x = 0;
        double y = 0;
        if (blank < 0 || !toNumber(line.left(blank), &x) || !toNumber(line.mid(blank + 1), &y))
            return damaged("POINT");
        p.x.push_back(x);
        p.y.push_back(y);
    }
    qsizetype k = 5 + count;
    if (lines[k] != "END")
        return damaged("END");
    // The trailer: empty line, X title, empty line, Y title, the two captions.
    auto trailer = [&](int i) { return k + i < lines.size() ? lines[k + i] : QByteArray(); };
    if (!trailer(1).isEmpty() || !trailer(3).isEmpty())
        return damaged("TITLES");
    p.xTitle = QString::fromUtf8(trailer(2));
    p.yTitle = QString::fromUtf8(trailer(4));
    p.unitsCaption = QString::fromUtf8(trailer(5));
    p.intervalCaption = QString::fromUtf8(trailer(6));
    *plot = std::move(p);
    return true;
}

bool Read(const QString& path, PlotData* plot, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(error, QStringLiteral("THE FILE CANNOT BE OPENED."));
    if (file.size() > MaxFileBytes) {
        return fail(error,
            QStringLiteral(
                "THE FILE IS LARGER THAN %1 MB, THE LARGEST PLOT FILE THE PROGRAM READS.")
                .arg(MaxFileBytes / (1024 * 1024)));
    }
    return Parse(file.readAll(), plot, error);
}

} // namespace PlotFile

#pragma once

#include <QTest>

// Tables one row a line: each line is the row's name and its data, in the column "row". Rows
// whose fields stand apart at " | " name the case in the first (fields()); numbers in a field
// stand apart at commas or blanks, "-" none (NaN).
namespace rows {
inline void add(std::initializer_list<const char*> lines)
{
    QTest::addColumn<QString>("row");
    for (const char* line : lines)
        QTest::newRow(line) << QString::fromUtf8(line);
}
inline QStringList fields()
{
    QFETCH(QString, row);
    return row.split(QStringLiteral(" | ")).mid(1);
}
inline QList<double> numbers(QString text)
{
    QList<double> out;
    for (const QString& n : text.replace(',', ' ').split(' ', Qt::SkipEmptyParts))
        out << (n == QLatin1String("-") ? qQNaN() : n.toDouble());
    return out;
}
} // namespace rows

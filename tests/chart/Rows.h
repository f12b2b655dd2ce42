#pragma once

#include <QList>
#include <QStringList>
#include <QTest>
#include <initializer_list>

// Tables written one row a line: the line is both the row's name and its data, its fields apart
// at " | ", the first naming the case.
namespace rows {

inline void add(std::initializer_list<const char*> lines)
{
    QTest::addColumn<QString>("row");
    for (const char* line : lines)
        QTest::newRow(line) << QString::fromUtf8(line);
}

// The current row's fields after its name.
inline QStringList fields()
{
    QFETCH(QString, row);
    return row.split(QStringLiteral(" | ")).mid(1);
}

// Numbers apart at commas or blanks; "-" stands for none (NaN).
inline QList<double> numbers(const QString& text)
{
    QList<double> out;
    for (const QString& n : QString(text)
                                .replace(QLatin1Char(','), QLatin1Char(' '))
                                .split(QLatin1Char(' '), Qt::SkipEmptyParts))
        out << (n == QLatin1String("-") ? qQNaN() : n.toDouble());
    return out;
}

} // namespace rows

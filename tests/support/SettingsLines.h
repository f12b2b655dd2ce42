#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTest>

// The settings file's 23 lines, as the tests write and read them.
namespace settingslines {

// The factory settings, one entry a line.
inline QStringList factory()
{
    return { "100", "0", "60", "0", "0", "0", "TEMPERATURE", "SECONDS", "1", "0", "1", "100", "0",
        "85", "25", "1", "0", "1", "0", "1", "300", "0", "1" };
}

inline QByteArray linesOf(const QStringList& lines)
{
    QByteArray bytes;
    for (const QString& line : lines)
        bytes += line.toLatin1() + "\r\n";
    return bytes;
}

inline void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

inline void write(const QString& path, const QStringList& lines) { write(path, linesOf(lines)); }

// The lines of a file ending in CR LF; empty when it cannot be read.
inline QStringList read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromLatin1(file.readAll()).split(QStringLiteral("\r\n"));
    lines.removeLast();
    return lines;
}

} // namespace settingslines

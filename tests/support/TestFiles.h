#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTest>

// Whole files in and out, for tests that check exact bytes.
namespace testfiles {

// The file's bytes, or "<missing>" when it cannot be read.
inline QByteArray readAll(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

inline void writeAll(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace testfiles

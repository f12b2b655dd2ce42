#pragma once

#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

// Reads a workbook back the hard way: unzip its parts and parse the first sheet's XML.
namespace XlsxReader {

inline QByteArray part(const QString& workbook, const QString& name)
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), { QStringLiteral("-p"), workbook, name });
    if (!unzip.waitForFinished(30000) || unzip.exitCode() != 0)
        return {};
    return unzip.readAllStandardOutput();
}

inline QStringList sharedStrings(const QString& workbook)
{
    QStringList strings;
    QXmlStreamReader xml(part(workbook, QStringLiteral("xl/sharedStrings.xml")));
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("si"))
            strings << QString();
        else if (xml.name() == QLatin1String("t") && !strings.isEmpty())
            strings.last() += xml.readElementText();
    }
    return strings;
}

// Cell reference ("A5") to its text: numbers as written, shared strings resolved.
inline QMap<QString, QString> cells(const QString& workbook)
{
    const QStringList strings = sharedStrings(workbook);
    QMap<QString, QString> result;
    QXmlStreamReader xml(part(workbook, QStringLiteral("xl/worksheets/sheet1.xml")));
    QString ref;
    bool shared = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("c")) {
            ref = xml.attributes().value(QLatin1String("r")).toString();
            shared = xml.attributes().value(QLatin1String("t")) == QLatin1String("s");
        } else if (xml.name() == QLatin1String("v")) {
            const QString value = xml.readElementText();
            result[ref] = shared ? strings.value(value.toInt()) : value;
        }
    }
    return result;
}

} // namespace XlsxReader

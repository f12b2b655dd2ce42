#include "DataPointStore.h"

DataPointStore::DataPointStore(QObject* parent)
    : QObject(parent)
{
}

void DataPointStore::append(const QString& chunk)
{
    if (chunk.isEmpty())
        return;
    text_ += chunk;
    emit appended(chunk);
}

void DataPointStore::setText(const QString& text)
{
    text_ = text;
    emit replaced();
}

bool IsStoredDataPoint(const QString& line) { return line.contains(QLatin1Char('#')); }

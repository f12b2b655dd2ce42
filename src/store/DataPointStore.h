#pragma once

#include <QObject>
#include <QString>

// The readings kept as text, one per line, CR LF separated: the content of the stored points
// window's text box. A line holding "#" is a point downloaded from the instrument's memory.
class DataPointStore : public QObject {
    Q_OBJECT
public:
    explicit DataPointStore(QObject* parent = nullptr);

    const QString& text() const { return text_; }
    bool isEmpty() const { return text_.isEmpty(); }
    void append(const QString& chunk);
    void setText(const QString& text);
    void clear() { setText(QString()); }

signals:
    // Text added at the end; views append it instead of re-reading the whole store.
    void appended(const QString& chunk);
    // The whole text was replaced.
    void replaced();

private:
    QString text_;
};

// True when any character of the line is "#".
bool IsStoredDataPoint(const QString& line);

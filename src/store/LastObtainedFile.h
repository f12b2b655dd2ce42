#pragma once

#include <QFile>
#include <QString>

// The last-obtained data file: open for the whole of a real-time run, each line written
// through to the disk at once so that a crash loses no reading already shown.
class LastObtainedFile {
public:
    static constexpr const char* FileName = "LAST_OBTAINED_DATA_PTS.dat";

    // Creates or truncates the file; false when it cannot be opened.
    bool open(const QString& path);
    bool isOpen() const { return file_.isOpen(); }
    // Writes raw text as it stands.
    void write(const QString& text);
    // Writes the text and CR LF.
    void writeLine(const QString& text);
    void close();
    QString errorString() const { return file_.errorString(); }

private:
    QFile file_;
};

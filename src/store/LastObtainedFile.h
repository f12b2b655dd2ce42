#pragma once

#include <QFile>
#include <QString>

// The last-obtained data file: open for the whole of a real-time run. Each line goes to the
// operating system at once, or, while the receive path holds it, when the batch of characters in
// hand is done and before anything of that batch is shown: a crash loses no reading already shown.
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
    // While held, lines gather in memory; release() and flush() hand them to the system.
    void hold() { held_ = true; }
    void release()
    {
        held_ = false;
        flush();
    }
    void flush();
    QString errorString() const { return file_.errorString(); }
    // Why this run's file is not being written: it could not be opened or a write failed (the
    // system's reason). Empty while all is well; after a failure nothing more is written.
    const QString& failure() const { return failure_; }
    void fail(const QString& reason);

private:
    QFile file_;
    QString failure_;
    QByteArray pending_;
    bool held_ = false;
};

#pragma once

#include <QByteArray>
#include <QString>

class QFile;

// Whole-file writes that never cost the old file: the new content goes to a temporary file
// beside the target, every write is checked and the file is synced to disk, and only then does
// it replace the target, in one step. Any failure removes the temporary file and leaves the
// target exactly as it was.
namespace WholeFile {

struct Result {
    bool ok = true;
    // Why it failed, in the system's words ("No space left on device").
    QString reason;
    explicit operator bool() const { return ok; }
};

// Writes `bytes` as the file's new content, or after its present content when `append`.
Result Write(const QString& path, const QByteArray& bytes, bool append = false);

// Appends `bytes` to a file kept open (the live files of a run), going on after a short write,
// so that a refusal is told with the system's reason rather than as a short count. False when
// not all was written; the file's errorString() then says why.
bool WriteAll(QFile& file, const QByteArray& bytes);

} // namespace WholeFile

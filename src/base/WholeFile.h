#pragma once

#include <QByteArray>
#include <QString>

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

} // namespace WholeFile

#pragma once

#include <QByteArray>
#include <QString>

// Whole-file writes that never leave half a file: the new content goes to a temporary file
// beside the target, which then replaces the target in one step.
namespace WholeFile {

// Writes `bytes` as the file's new content, or after its present content when `append`. False
// when anything failed; the file is then exactly as it was.
bool Write(const QString& path, const QByteArray& bytes, bool append = false);

} // namespace WholeFile

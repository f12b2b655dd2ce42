#pragma once

#include "base/WholeFile.h"

#include <QString>
#include <array>

// The 23-line settings file: line k+1 holds entry k, lines end in CR LF.
namespace SettingsFile {

constexpr int Count = 23;
using Values = std::array<QString, Count>;
// A settings value is a number, a flag or a title: anything longer is cut here, so a hostile
// file cannot put megabytes into a caption.
constexpr int MaxLineLength = 1024;

// Reads up to 23 lines into the leading entries, stopping at the end of the file; entries past
// the end keep what they held. False when the file cannot be opened.
bool Read(const QString& path, Values& values);
// Writes all 23 entries at once: a failed write leaves the previous file as it was.
WholeFile::Result Write(const QString& path, const Values& values);

} // namespace SettingsFile

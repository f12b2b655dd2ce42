#pragma once

#include "base/WholeFile.h"

#include <QString>

struct AppState;
class DataPointStore;

// The store's own work file, "DPStorage.dat": the stored points are kept in it when the stored
// points window closes with data, and read back by the view of the downloaded points.
namespace DataPointFiles {
constexpr const char* StorageFileName = "DPStorage.dat";
// A week of stored readings at one a second is 604,800 of them at some 24 bytes each (an empty
// line, then tab, location, tab, reading, tab, units): 15 MB. A larger file is not read at all:
// a part of it in the store could be saved back over the whole when the window closes.
constexpr qint64 MaxStorageBytes = 64 * 1024 * 1024;
enum class Loaded { Yes, Unreadable, TooLarge };
} // namespace DataPointFiles

// Writes the store text and CR LF to "DPStorage.dat", after what it holds when `append`, else
// in place of it. When the file could not be written it is as it was, and the result says why.
WholeFile::Result SaveDataPointStorage(
    const AppState& state, const DataPointStore& store, bool append);
// Replaces the store text with the non-empty lines of "DPStorage.dat", each ended by CR LF. A
// missing, unreadable or too large file leaves the store as it is.
DataPointFiles::Loaded LoadDataPointStorage(const AppState& state, DataPointStore& store);

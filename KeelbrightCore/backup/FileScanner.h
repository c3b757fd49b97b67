#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/DirectoryEnumerator.h"

#include <QByteArrayList>
#include <QList>

namespace keelbright {

/// The rule of what a backup leaves out, and the estimate that follows from it.
namespace FileScanner {

struct ScanResult
{
    qint64 fileCount = 0;
    qint64 totalBytes = 0;
    friend bool operator==(const ScanResult&, const ScanResult&) = default;
};

/// Folder names that are left out whole; compared with letter case.
[[nodiscard]] const QByteArrayList& skippedFolderNames();
/// Extensions that are left out; compared in lower case.
[[nodiscard]] const QByteArrayList& skippedExtensions();

/// Whether the enumerator's current entry is left out; keeps the enumerator out of a folder that
/// is left out by its name.
[[nodiscard]] bool shouldSkip(DirectoryEnumerator& enumerator);

/// Counts the regular files that a backup of the enabled sources would copy. Blocks; never fails.
[[nodiscard]] ScanResult scan(const QList<BackupSource>& sources);

} // namespace FileScanner
} // namespace keelbright

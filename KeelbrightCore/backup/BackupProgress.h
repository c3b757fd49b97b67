#pragma once

#include <QString>
#include <QStringList>

namespace keelbright {

/// Live counters of the running backup.
struct BackupProgress
{
    QString currentFile;           ///< last path component of the last file copied
    qint64 filesCopied = 0;        ///< files written
    qint64 filesSkipped = 0;       ///< items left out by rule, and items that failed
    qint64 totalFilesEstimate = 0; ///< files that the scan before the run counted
    qint64 bytesCopied = 0;        ///< source sizes of the copied files
    QStringList errors;            ///< one line for each failure, in order; may hold 100,000

    /// From 0 to 1; 0 without an estimate.
    [[nodiscard]] double fractionCompleted() const;
    [[nodiscard]] QString copiedSizeFormatted() const;

    friend bool operator==(const BackupProgress&, const BackupProgress&) = default;
};

} // namespace keelbright

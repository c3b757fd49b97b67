#pragma once

#include <QString>
#include <QStringList>

namespace keelbright {

/// The texts of records, which outlive the language of the window and are read by other programs: they
/// are written in English, and what is shown of them is translated.
namespace StoredTexts {

// Titles in the activity log.
inline constexpr char backupCompleted[] = QT_TRANSLATE_NOOP("StoredTexts", "Backup completed");
inline constexpr char backupWithWarnings[] =
    QT_TRANSLATE_NOOP("StoredTexts", "Backup completed with warnings");
inline constexpr char junkTrashed[] = QT_TRANSLATE_NOOP("StoredTexts", "Junk files moved to Trash");
inline constexpr char filesOrganised[] = QT_TRANSLATE_NOOP("StoredTexts", "Files organised");
inline constexpr char appFilesRemoved[] = QT_TRANSLATE_NOOP("StoredTexts", "Files of %1 removed");
inline constexpr char appRemoved[] = QT_TRANSLATE_NOOP("StoredTexts", "%1 removed");

// Details there; the first value of those with "%1" is a whole number.
inline constexpr char filesBackedUp[] = QT_TRANSLATE_N_NOOP("StoredTexts", "%1 files · %2");
inline constexpr char itemTrashed[] = QT_TRANSLATE_NOOP("StoredTexts", "%1 item across %2 categories");
inline constexpr char itemsTrashed[] = QT_TRANSLATE_N_NOOP("StoredTexts", "%1 items across %2 categories");
inline constexpr char fileSorted[] = QT_TRANSLATE_NOOP("StoredTexts", "%1 file sorted into subfolders");
inline constexpr char filesSorted[] = QT_TRANSLATE_N_NOOP("StoredTexts", "%1 files sorted into subfolders");
inline constexpr char fileSortedIn[] =
    QT_TRANSLATE_NOOP("StoredTexts", "%1 file sorted into subfolders in %2");
inline constexpr char filesSortedIn[] =
    QT_TRANSLATE_N_NOOP("StoredTexts", "%1 files sorted into subfolders in %2");
inline constexpr char appAndFileTrashed[] =
    QT_TRANSLATE_NOOP("StoredTexts", "App + %1 leftover file moved to Trash");
inline constexpr char appAndFilesTrashed[] =
    QT_TRANSLATE_N_NOOP("StoredTexts", "App + %1 leftover files moved to Trash");
inline constexpr char appFileTrashed[] = QT_TRANSLATE_NOOP("StoredTexts", "%1 leftover file moved to Trash");
inline constexpr char appFilesTrashed[] =
    QT_TRANSLATE_N_NOOP("StoredTexts", "%1 leftover files moved to Trash");
inline constexpr char appTrashed[] = QT_TRANSLATE_NOOP("StoredTexts", "App bundle moved to Trash");

/// The English text with its values in it, at most two.
[[nodiscard]] QString stored(const char* text, const QStringList& values = {});

/// How a title or a detail of the activity log is shown; what is none of the texts above stays as it is.
[[nodiscard]] QString shownTitle(const QString& stored);
[[nodiscard]] QString shownDetail(const QString& stored);

/// How a line of `BackupProgress::errors` or of a report is shown. Its reason is in the language of the run.
[[nodiscard]] QString shownError(const QString& line);

} // namespace StoredTexts
} // namespace keelbright

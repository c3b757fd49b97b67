#pragma once

#include <QDateTime>
#include <QString>

namespace keelbright::L10n {

/// Named texts of the Dashboard, looked up once.
namespace Dashboard {
[[nodiscard]] const QString& title();
[[nodiscard]] const QString& neverBackedUp();
[[nodiscard]] const QString& backingUp();
[[nodiscard]] const QString& completed();
[[nodiscard]] const QString& attentionNeeded();
[[nodiscard]] const QString& overdue();
[[nodiscard]] const QString& noDestination();
[[nodiscard]] const QString& noFolders();
[[nodiscard]] const QString& ready();
[[nodiscard]] const QString& nextBackup();
[[nodiscard]] const QString& manualOnly();
[[nodiscard]] const QString& latestBackup();
[[nodiscard]] const QString& setupDestination();
[[nodiscard]] const QString& selectItems();
[[nodiscard]] const QString& runBackupNow();
} // namespace Dashboard

/// Named texts of the preflight screen, looked up once.
namespace Preflight {
[[nodiscard]] const QString& title();
[[nodiscard]] const QString& analyzing();
[[nodiscard]] const QString& estimateTitle();
[[nodiscard]] const QString& totalFiles();
[[nodiscard]] const QString& totalSize();
[[nodiscard]] const QString& destinationFree();
[[nodiscard]] const QString& warningTitle();
[[nodiscard]] const QString& errorTitle();
[[nodiscard]] const QString& notEnoughSpace();
[[nodiscard]] const QString& confirmBackup();
[[nodiscard]] const QString& cancel();
[[nodiscard]] const QString& resolveErrors();
} // namespace Preflight

/// How sizes and dates look everywhere. Any thread.
namespace Formatters {
[[nodiscard]] QString bytes(qint64 count);
/// Medium date, short time.
[[nodiscard]] QString date(const QDateTime& date);
} // namespace Formatters

} // namespace keelbright::L10n

#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace keelbright {

/// The states in which a backup can be shown.
enum class BackupStatus { idle, backingUp, completed, failed, warning };

[[nodiscard]] const QList<BackupStatus>& allBackupStatuses();
/// The text that is shown and stored.
[[nodiscard]] QString rawValue(BackupStatus status);
[[nodiscard]] std::optional<BackupStatus> backupStatusFromRawValue(const QString& text);
/// Symbolic icon key.
[[nodiscard]] QString icon(BackupStatus status);

} // namespace keelbright

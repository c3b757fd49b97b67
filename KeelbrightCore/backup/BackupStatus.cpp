#include "KeelbrightCore/backup/BackupStatus.h"

namespace keelbright {

using namespace Qt::StringLiterals;

const QList<BackupStatus>& allBackupStatuses()
{
    static const QList<BackupStatus> statuses{BackupStatus::idle, BackupStatus::backingUp,
                                              BackupStatus::completed, BackupStatus::failed,
                                              BackupStatus::warning};
    return statuses;
}

QString rawValue(BackupStatus status)
{
    switch (status) {
    case BackupStatus::idle:
        return u"Idle"_s;
    case BackupStatus::backingUp:
        return u"Backing Up..."_s;
    case BackupStatus::completed:
        return u"Completed"_s;
    case BackupStatus::failed:
        return u"Failed"_s;
    case BackupStatus::warning:
        return u"Action Required"_s;
    }
    Q_UNREACHABLE();
}

std::optional<BackupStatus> backupStatusFromRawValue(const QString& text)
{
    for (const BackupStatus status : allBackupStatuses()) {
        if (rawValue(status) == text)
            return status;
    }
    return std::nullopt;
}

QString icon(BackupStatus status)
{
    switch (status) {
    case BackupStatus::idle:
    case BackupStatus::completed:
        return u"checkmark.circle.fill"_s;
    case BackupStatus::backingUp:
        return u"arrow.clockwise.circle.fill"_s;
    case BackupStatus::failed:
        return u"exclamationmark.circle.fill"_s;
    case BackupStatus::warning:
        return u"exclamationmark.triangle.fill"_s;
    }
    Q_UNREACHABLE();
}

} // namespace keelbright

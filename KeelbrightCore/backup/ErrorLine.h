#pragma once

#include "KeelbrightCore/platform/files/FileError.h"

#include <QString>

namespace keelbright {

/// A line of `BackupProgress::errors`: what went wrong with what, and the reason.
[[nodiscard]] inline QString errorLine(const QString& what, const FileError& error)
{
    return what + QStringLiteral(": ") + error.localizedDescription();
}

/// The line for an item that is missing from the backup.
[[nodiscard]] inline QString skipLine(const QString& name, const FileError& error)
{
    return errorLine(QStringLiteral("Skip ") + name, error);
}

} // namespace keelbright

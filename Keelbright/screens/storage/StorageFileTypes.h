#pragma once

#include "Keelbright/widgets/theme/Roles.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>
#include <QString>

namespace keelbright {

/// What the storage browser calls a kind of file, and its colour.
struct FileTypeLabel
{
    QString label;
    Role color = Role::secondaryText;

    friend bool operator==(const FileTypeLabel&, const FileTypeLabel&) = default;
};

/// All that a folder holds of one kind.
struct FileTypeShare
{
    QString label;
    qint64 bytes = 0;
    Role color = Role::secondaryText;

    friend bool operator==(const FileTypeShare&, const FileTypeShare&) = default;
};

/// By a path extension in lower case.
[[nodiscard]] FileTypeLabel extLabelColor(const QString& ext);
/// The symbol of one of the largest files, by its path extension in lower case.
[[nodiscard]] QString extIcon(const QString& ext);
/// The symbol of a file in the list, by its name. Knows other extensions than `extIcon`.
[[nodiscard]] QString fileIcon(const QString& name);

/// The kinds among the nodes, largest first; folders are a kind of their own. Any thread.
[[nodiscard]] QList<FileTypeShare> typeBreakdown(const QList<FolderSizeNode>& nodes);

} // namespace keelbright

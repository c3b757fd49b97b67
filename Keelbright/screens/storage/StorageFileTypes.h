#pragma once

#include "Keelbright/widgets/theme/Roles.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>
#include <QString>

namespace keelbright {

/// The name of a kind of file in the storage browser, and its colour.
struct FileTypeLabel
{
    QString label;
    Role color = Role::secondaryText;

    friend bool operator==(const FileTypeLabel&, const FileTypeLabel&) = default;
};

/// The entries of one kind in a folder, together.
struct FileTypeShare
{
    QString label;
    qint64 bytes = 0;
    Role color = Role::secondaryText;

    friend bool operator==(const FileTypeShare&, const FileTypeShare&) = default;
};

/// `ext` is a path extension in lower case.
[[nodiscard]] FileTypeLabel extLabelColor(const QString& ext);
/// The symbol of a file in the list of the largest ones; `ext` as above.
[[nodiscard]] QString extIcon(const QString& ext);
/// The symbol of a file in the list of entries, by its name. The extensions differ from `extIcon`.
[[nodiscard]] QString fileIcon(const QString& name);

/// The kinds among the nodes, largest first; folders are a kind of their own. Any thread.
[[nodiscard]] QList<FileTypeShare> typeBreakdown(const QList<FolderSizeNode>& nodes);

} // namespace keelbright

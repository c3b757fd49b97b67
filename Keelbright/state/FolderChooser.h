#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <QString>
#include <functional>
#include <optional>

namespace keelbright {

/// What a folder chooser is asked for.
struct FolderChooserRequest
{
    QString message; ///< what the user is to choose, shown as the title
    QString prompt;  ///< the text of the accepting button
    bool allowsMultipleSelection = false;
    bool canCreateDirectories = false;
    /// Shown first, or the folder around it; the home where neither is there.
    std::optional<FileURL> folder = std::nullopt;
};

/// Asks the user for folders; given to the state at start, so that it knows no dialog.
class FolderChooser
{
public:
    virtual ~FolderChooser() = default;
    /// Shows the chooser and returns at once. `chosen` is called on the main thread when the
    /// user confirms, and never when the chooser is dismissed.
    virtual void chooseFolders(const FolderChooserRequest& request,
                               std::function<void(const QList<FileURL>&)> chosen) = 0;
};

} // namespace keelbright

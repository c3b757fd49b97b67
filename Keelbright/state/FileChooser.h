#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace keelbright {

/// What a chooser is asked for when the user opens a file.
struct FileOpenRequest
{
    QString message;        ///< what the user is to choose, shown as the title
    QString prompt;         ///< the text of the accepting button
    QStringList extensions; ///< without dots; only such files can be chosen
    /// Shown first, or the folder around it; the home where neither is there.
    std::optional<FileURL> folder = std::nullopt;
};

/// What a chooser is asked for when the user chooses where a file is saved.
struct FileSaveRequest
{
    QString title;
    QString prompt;    ///< the text of the accepting button
    QString name;      ///< what the file is called unless the user writes otherwise
    QString extension; ///< without a dot; given to a name that is written without one
    /// Proposed, or the folder around it; the home where neither is there.
    std::optional<FileURL> folder = std::nullopt;
};

/// Asks the user for one file. Handed to the screens, so that they know no dialog.
class FileChooser
{
public:
    virtual ~FileChooser() = default;
    // Both show the chooser and return at once. `chosen` is called on the main thread when the user
    // confirms, and never when the chooser is dismissed.
    virtual void chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen) = 0;
    virtual void chooseSaveLocation(const FileSaveRequest& request,
                                    std::function<void(const FileURL&)> chosen) = 0;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace keelbright {

/// What the user is to choose in a panel that opens.
struct OpenPanelRequest
{
    QString message; ///< what is to be chosen
    QString prompt;  ///< the text of the accepting button
    bool choosesFolders = false;
    bool allowsMultipleSelection = false;
    bool canCreateFolders = false;
    QStringList extensions = {};                  ///< without dots; empty for all files
    std::optional<FileURL> folder = std::nullopt; ///< shown first
};

/// Where the user is to save a file.
struct SavePanelRequest
{
    QString title;
    QString prompt;    ///< the text of the accepting button
    QString name;      ///< proposed
    QString extension; ///< without a dot; empty for any
    std::optional<FileURL> folder = std::nullopt;
};

/// The operating system's own panels for choosing files and folders, on the one where they take all of a
/// request. Main thread.
namespace SystemPanels {

/// Where not, nothing below does anything.
[[nodiscard]] bool areThere();

// Both show the panel and return at once. `chosen` is called on the main thread when the user confirms, and
// never when the panel is dismissed.
void open(const OpenPanelRequest& request, std::function<void(const QList<FileURL>&)> chosen);
/// Asks before a file is replaced.
void save(const SavePanelRequest& request, std::function<void(const FileURL&)> chosen);

} // namespace SystemPanels
} // namespace keelbright

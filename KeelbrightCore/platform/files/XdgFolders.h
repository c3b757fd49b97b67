#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

class FileManager;

/// The base folders below which the programs of a desktop keep their files, as the environment names
/// them, else below the home. Internal to the platform folder.
namespace XdgFolders {

[[nodiscard]] FileURL configuration(const FileManager& files);
/// For the user's data ask `FileManager::applicationSupportDirectory` instead, which knows a Mac's place too.
[[nodiscard]] FileURL data(const FileManager& files);
[[nodiscard]] FileURL caches(const FileManager& files);
[[nodiscard]] FileURL state(const FileManager& files);
/// Where data lies that programs look for: the user's own folder, then those of the system, then what
/// Flatpak and Snap add to them, each once.
[[nodiscard]] QList<FileURL> dataFolders(const FileManager& files);

} // namespace XdgFolders
} // namespace keelbright

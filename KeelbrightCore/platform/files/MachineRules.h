#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

class FileManager;

/// What one operating system does with its folders and others don't. Internal to the platform folder.
namespace MachineRules {

/// Whether this is a Mac.
[[nodiscard]] bool isMac();

/// Where programs keep data of this user.
[[nodiscard]] FileURL applicationSupport(const FileManager& files);

/// Folders whose content is also seen in other places, so that a walk from above would come to it twice. One
/// that begins in them finds it.
[[nodiscard]] QList<FileURL> placesSeenTwice();

/// Whether the system keeps programs out of some folders of the user until the user allows it.
[[nodiscard]] bool keepsProgramsOut();

} // namespace MachineRules
} // namespace keelbright

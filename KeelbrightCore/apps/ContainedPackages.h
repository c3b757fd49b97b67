#pragma once

#include "KeelbrightCore/apps/PackageFacts.h"
#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include <QByteArrayView>

namespace keelbright {

/// What Flatpak and Snap know of their applications. What can't be read is absent. Blocks while it reads;
/// any thread. Internal to the application scanner.
namespace ContainedPackages {

/// Nothing where the application is no Flatpak.
[[nodiscard]] std::optional<PackageFacts> flatpak(const DesktopApplication& application,
                                                  const FileManager& files);
/// Nothing where the application is no Snap.
[[nodiscard]] std::optional<PackageFacts> snap(const DesktopApplication& application,
                                               const FileManager& files);

/// The installed size in what Flatpak writes down for each application (the file "deploy"), which is not
/// trusted; nothing where it is something else.
[[nodiscard]] std::optional<qint64> sizeInDeployData(QByteArrayView data);

} // namespace ContainedPackages
} // namespace keelbright

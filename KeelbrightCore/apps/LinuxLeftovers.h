#pragma once

#include "KeelbrightCore/apps/AppLeftover.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

namespace keelbright {

/// What the applications of a desktop keep in the home. Internal to the leftovers scanner.
namespace LinuxLeftovers {

/// The folders of the application that are called exactly like its identifier or its program and like
/// nothing of another application that the menu of any desktop shows, the largest first, and the entry in the
/// menu that an AppImage has in the home. Nothing where the application is not installed. Blocks; any thread.
/// Once cancelled, it ends before the next place.
[[nodiscard]] QList<AppLeftover> scan(const QString& id, const FileManager& files,
                                      const Cancellation& cancellation);

} // namespace LinuxLeftovers
} // namespace keelbright

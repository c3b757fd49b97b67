#pragma once

#include "KeelbrightCore/apps/AppLeftover.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

namespace keelbright::AppLeftoversScanner {

/// Finds what an application keeps outside its bundle, in the home and in the system's folders of
/// launch agents and daemons (where the machine is no Mac: what `LinuxLeftovers` finds), the largest first.
/// Sizes are those of `FolderSizeService`. Only reads; never fails, and what can't be read is left out or has
/// the size 0. Blocks while it measures the folders that it found; any thread but the main one.
///
/// Nothing outside those folders is found, even if a text holds a slash. An empty text finds whole
/// folders in which all applications keep their files. Once cancelled, it ends before the next place that
/// it would measure, with what it has found so far.
[[nodiscard]] QList<AppLeftover> scan(const QString& bundleID, const QString& appName,
                                      const Cancellation& cancellation = Cancellation());

} // namespace keelbright::AppLeftoversScanner

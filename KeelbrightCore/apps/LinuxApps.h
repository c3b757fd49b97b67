#pragma once

#include "KeelbrightCore/apps/AppInfo.h"

#include <QList>

namespace keelbright {

class FileManager;

/// The applications of a machine that is no Mac.
namespace LinuxApps {

/// Those that the desktop's menu shows and the AppImages of the home, with what their packages and the
/// desktops know of them. Starts no helper program. Blocks while it reads; any thread.
[[nodiscard]] QList<AppFacts> installed(const FileManager& files);

} // namespace LinuxApps
} // namespace keelbright

#pragma once

#include <QByteArray>

namespace keelbright {

/// Where the copies of a machine lie on a destination.
namespace DeviceFolder {

/// The folder of this machine, relative to the destination: "Keelbright/<device>", or "Keelbright" where
/// nothing of the machine's name can be a folder's name.
[[nodiscard]] QByteArray ofThisMachine();

} // namespace DeviceFolder
} // namespace keelbright

#pragma once

namespace keelbright {

/// Files of which only the name is on this machine, as a cloud provider has the rest. Internal to the
/// platform folder and to the start of the program.
namespace CloudFiles {

/// From now on nothing that this process opens or reads is fetched from the cloud; it fails with EDEADLK
/// instead. A backup would fill the machine's own drive with everything that had been moved off it. To be
/// called once, as the program starts; does nothing on a system without such files.
void leaveInTheCloud();

} // namespace CloudFiles
} // namespace keelbright

#pragma once

#include "Keelbright/state/AppServices.h"

namespace keelbright {

/// Runs the whole program, with its window, on the present default file manager, and gives the
/// exit code. Does not return where a backup can't be ended at quitting, as on a drive that hangs:
/// the process then ends at once.
int runApplication(int argc, char** argv, AppLookup lookup = appStoreLookup);

} // namespace keelbright

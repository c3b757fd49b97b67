#pragma once

#include "Keelbright/state/AppServices.h"

namespace keelbright {

/// Runs the program with its window on the current default file manager, and returns the exit code: 0, or 2
/// after one line on standard error for arguments that it does not know. Where it runs on the same settings
/// already, that window comes to the front instead. Without a display the process ends with 1.
/// If a backup can't be stopped at quitting, as on a drive that hangs, or anything else is still at work in
/// the background, it does not return but ends the process.
int runApplication(int argc, char** argv, AppLookup lookup = appStoreLookup);

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/BackupJob.h"
#include "KeelbrightCore/backup/BackupManifest.h"

namespace keelbright::ManifestGenerator {

/// Describes the machine as it is now. Never fails; any thread.
[[nodiscard]] BackupManifest generate(const BackupJob& job);

} // namespace keelbright::ManifestGenerator

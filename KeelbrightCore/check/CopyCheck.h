#pragma once

#include "KeelbrightCore/check/CheckJob.h"
#include "KeelbrightCore/check/CheckProgress.h"
#include "KeelbrightCore/check/CheckReport.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <QFuture>
#include <memory>

namespace keelbright {

/// Proves the copies of a machine: reads each of them back from the drive and compares it with its original,
/// or with a list of checksums. Changes nothing on either side; access times stay where the system allows
/// that to the user. Memory does not grow with the number of files, only with that of findings.
namespace CopyCheck {

/// Ends early, with what it has found out so far, once it is cancelled or the drive is gone; where memory
/// runs out, it fails with that as its error. Blocks; any thread.
[[nodiscard]] CheckReport run(const CheckJob& job, CheckProgress& progress,
                              const Cancellation& cancellation = Cancellation());

/// The same on a thread of its own, at low priority: it takes what other work leaves of processors and
/// drives.
[[nodiscard]] QFuture<CheckReport> start(const CheckJob& job, const std::shared_ptr<CheckProgress>& progress,
                                         const std::shared_ptr<const Cancellation>& cancellation);

/// Where a list of the checksums of a device's copies is proposed to be saved: beside the device's folder.
[[nodiscard]] FileURL proposedChecksumList(const FileURL& deviceFolder);

/// The folder of copies that a list of checksums is about: the one of its name beside it, where there is one.
[[nodiscard]] std::optional<FileURL> deviceFolderBeside(const FileURL& checksumList);

} // namespace CopyCheck
} // namespace keelbright

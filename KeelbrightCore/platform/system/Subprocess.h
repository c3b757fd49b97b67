#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <QByteArray>
#include <QList>

namespace keelbright {

/// Runs helper programs. One thread watches all of them, so that none holds a thread while it runs.
namespace Subprocess {

/// A helper that writes more is killed.
inline constexpr qsizetype maximumOutputBytes = qsizetype{8} * 1024 * 1024;

/// What a helper left behind when it ended, however it ended.
struct Result
{
    static constexpr int unknownExitCode = -1;

    QByteArray standardOutput; ///< what it wrote, to the end
    bool isOutputWhole = true; ///< false where it wrote more than the maximum
    int exitCode = 0;          ///< `unknownExitCode` where it crashed or the system keeps none
    bool crashed = false;      ///< ended by a signal
};

using Receiver = UniqueFunction<void(Result)>;

/// Starts `executable` with `arguments` (exact bytes) and returns at once. Its output is drained all
/// the while, so that it never blocks on a full pipe; standard error goes nowhere and standard input
/// is empty. It gets this program's environment and none of its open files. A process that it leaves
/// behind is not waited for. There is no time-out.
///
/// `receive` is called once, when the helper has ended, on the thread that watches all helpers: it
/// hands the result on and returns at once. Fails where the helper can't be launched, and `receive`
/// is not called then. Any thread.
[[nodiscard]] std::expected<void, FileError> start(const FileURL& executable,
                                                   const QList<QByteArray>& arguments, Receiver receive);

} // namespace Subprocess
} // namespace keelbright

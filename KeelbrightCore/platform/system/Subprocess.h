#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <QList>

namespace keelbright {

/// Runs a helper program.
namespace Subprocess {

/// What a helper left behind when it ended, however it ended.
struct Result
{
    static constexpr int unknownExitCode = -1;

    QByteArray standardOutput; ///< everything it wrote, to the end
    int exitCode = 0;          ///< `unknownExitCode` where it crashed or the system keeps none
    bool crashed = false;      ///< ended by a signal
};

/// Runs `executable` with `arguments` (exact bytes) and waits until it has ended. Its output is
/// drained all the while, so that it never blocks on a full pipe; standard error goes nowhere and
/// standard input is empty. It gets this program's environment and none of its open files. A
/// process that it leaves behind is not waited for. Blocks the calling thread; any thread but the
/// main one. Fails only where it can't be launched.
[[nodiscard]] std::expected<Result, FileError> run(const FileURL& executable,
                                                   const QList<QByteArray>& arguments);

} // namespace Subprocess
} // namespace keelbright

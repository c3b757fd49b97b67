#pragma once

#include "KeelbrightCore/platform/FileError.h"
#include "KeelbrightCore/platform/FileURL.h"

#include <QByteArray>
#include <QList>

namespace keelbright {

/// Runs a helper program.
namespace Subprocess {

/// What a helper left behind when it ended, however it ended.
struct Result
{
    QByteArray standardOutput; ///< everything it wrote, to the end
    int exitCode = 0;          ///< meaningful where `crashed` is false
    bool crashed = false;      ///< ended by a signal
};

/// Runs `executable` with `arguments` (exact bytes) and waits until it has ended. Both of its
/// output streams are drained all the while, so that it never blocks on a full pipe; standard
/// error is dropped, standard input is empty. Nothing of this program's open files is inherited.
/// Blocks the calling thread; any thread but the main one. Fails only where it can't be launched.
[[nodiscard]] std::expected<Result, FileError> run(const FileURL& executable,
                                                   const QList<QByteArray>& arguments);

} // namespace Subprocess
} // namespace keelbright

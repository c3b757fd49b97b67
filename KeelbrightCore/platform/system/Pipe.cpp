#include "KeelbrightCore/platform/system/Pipe.h"

#include "KeelbrightCore/platform/system/ProcessCalls.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace keelbright {

namespace {

/// Where this program runs without standard streams, a new descriptor could get their numbers and
/// would be overwritten on its way to the helper.
FileDescriptor aboveStandardStreams(FileDescriptor descriptor)
{
    if (!descriptor.isOpen() || descriptor.get() > STDERR_FILENO)
        return descriptor;
    return FileDescriptor(::fcntl(descriptor.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

} // namespace

std::expected<Pipe, int> Pipe::make()
{
    std::array<int, 2> ends = {-1, -1};
    if (const int code = ProcessCalls::makePipe(ends))
        return std::unexpected(code);
    Pipe pipe{aboveStandardStreams(FileDescriptor(ends[0])), aboveStandardStreams(FileDescriptor(ends[1]))};
    if (!pipe.readEnd.isOpen() || !pipe.writeEnd.isOpen())
        return std::unexpected(errno);
    return pipe;
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/Pipe.h"

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
#ifdef __linux__
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::unexpected(errno);
#else
    if (::pipe(ends.data()) != 0)
        return std::unexpected(errno);
    ::fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    ::fcntl(ends[1], F_SETFD, FD_CLOEXEC);
#endif
    Pipe pipe{aboveStandardStreams(FileDescriptor(ends[0])), aboveStandardStreams(FileDescriptor(ends[1]))};
    if (!pipe.readEnd.isOpen() || !pipe.writeEnd.isOpen())
        return std::unexpected(errno);
    return pipe;
}

} // namespace keelbright

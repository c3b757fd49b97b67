#pragma once

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace keelbright {

/// Owns one open file descriptor; -1 stands for none. Internal to the platform folder.
class FileDescriptor
{
public:
    FileDescriptor() = default;

    explicit FileDescriptor(int descriptor)
        : m_descriptor(descriptor)
    {}

    FileDescriptor(FileDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {}

    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    ~FileDescriptor() { reset(); }

    /// Another descriptor of the same open file; not open, with `errno` set, where there can be
    /// no more.
    [[nodiscard]] static FileDescriptor duplicate(int descriptor)
    {
        return FileDescriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int get() const { return m_descriptor; }

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }

    /// Gives the descriptor away; the caller closes it.
    [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }

    /// Closes it; 0 or an `errno` value. Some drives report only then what they could not write.
    [[nodiscard]] int close() { return ::close(std::exchange(m_descriptor, -1)) == 0 ? 0 : errno; }

    void reset()
    {
        if (m_descriptor >= 0)
            ::close(std::exchange(m_descriptor, -1));
    }

private:
    int m_descriptor = -1;
};

/// Repeats a system call that a signal interrupted.
template <typename Call> auto retrying(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Writes all of it, however small the pieces that the file takes; 0, or an `errno` value.
[[nodiscard]] inline int writeAll(int file, const char* data, size_t size)
{
    while (size > 0) {
        const ssize_t written = retrying([&] { return ::write(file, data, size); });
        if (written < 0)
            return errno;
        if (written == 0)
            return ENOSPC;
        data += written;
        size -= static_cast<size_t>(written);
    }
    return 0;
}

} // namespace keelbright

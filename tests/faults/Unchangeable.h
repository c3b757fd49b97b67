#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace keelbright::testing {

/// Makes a file or folder unchangeable, even for root, for its lifetime.
class Unchangeable
{
public:
    Unchangeable(FileURL url, int flag)
        : m_url(std::move(url))
        , m_isSet(set(flag))
    {}

    ~Unchangeable()
    {
        if (m_isSet) {
            EXPECT_TRUE(set(0));
        }
    }

    Unchangeable(const Unchangeable&) = delete;
    Unchangeable& operator=(const Unchangeable&) = delete;

    [[nodiscard]] bool isSet() const { return m_isSet; }

private:
    [[nodiscard]] bool set(int flags) const
    {
        const int file = ::open(m_url.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        const bool isDone = ::ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
        ::close(file);
        return isDone;
    }

    FileURL m_url;
    bool m_isSet;
};

inline constexpr auto reasonUnchangeable = "nothing can be made unchangeable here";

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QTemporaryDir>
#include <string>

namespace keelbright::testing {

/// A small file system of its own in a temporary folder, while it lives.
/// Needs the right to mount: where it is missing, `reasonMissing()` says why, and the test skips
/// itself with that reason.
class TmpfsMount
{
public:
    struct Limits
    {
        qint64 bytes = 1'048'576;
        qint64 inodes = 0; ///< 0 sets none
    };

    explicit TmpfsMount(Limits limits);
    ~TmpfsMount();
    TmpfsMount(const TmpfsMount&) = delete;
    TmpfsMount& operator=(const TmpfsMount&) = delete;

    /// Empty when the file system is there.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] FileURL root() const;
    void makeReadOnly() const;

private:
    QTemporaryDir m_folder;
    std::string m_reasonMissing;
};

} // namespace keelbright::testing

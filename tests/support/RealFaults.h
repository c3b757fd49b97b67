#pragma once

#include "KeelbrightCore/platform/FileURL.h"

#include <QTemporaryDir>
#include <functional>
#include <string>

// Real faults for tests. Each needs a right or a tool that not every machine gives: where it is
// missing, `reasonMissing()` tells why, and the test skips itself with those words.

namespace keelbright::testing {

/// A small file system of its own in a temporary folder, while it lives. Needs root.
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

/// A FAT file system in an image file, mounted while it lives: no links, no modes, times to two
/// seconds, names that fold their case. Needs fusefat, mkfs.vfat and the right to mount.
class FatImage
{
public:
    explicit FatImage(qint64 bytes = 16'777'216);
    ~FatImage();
    FatImage(const FatImage&) = delete;
    FatImage& operator=(const FatImage&) = delete;

    /// Empty when the file system is there.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] FileURL root() const;

private:
    QTemporaryDir m_folder;
    std::string m_reasonMissing;
};

/// Runs `work` in a child process as the user "nobody", who may enter `passable` and the folders
/// above it while it runs; what `work` fails to expect fails the calling test too. Returns why
/// it could not run, empty otherwise. Needs root.
[[nodiscard]] std::string asOtherUser(const FileURL& passable, const std::function<void()>& work);

} // namespace keelbright::testing

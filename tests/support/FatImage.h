#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QTemporaryDir>
#include <string>

namespace keelbright::testing {

/// A FAT file system in an image file, mounted while it lives: no links, no modes, times to two
/// seconds, names that fold their case. Needs fusefat, mkfs.vfat and the right to mount: where one
/// is missing, `reasonMissing()` says which, and the test skips itself with that reason.
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

} // namespace keelbright::testing

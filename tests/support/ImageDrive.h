#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QTemporaryDir>
#include <optional>
#include <string>

namespace keelbright::testing {

/// A drive whose file system lies in an image file, mounted while it lives. Needs root, a loop
/// device and the programs of that file system: where one is missing, `reasonMissing()` says which,
/// and the test skips itself with that reason.
class ImageDrive
{
public:
    enum class Kind {
        exFat, ///< folds letter case; neither links nor permissions
        ntfs,  ///< folds letter case, refuses the names that its own system refuses
        ext4,  ///< turns read-only at its first error
        btrfs, ///< supports quotas; at least 120 MB
    };

    /// `bytes` is a multiple of 4,096. The image lies in a folder of its own, or in the given one,
    /// which outlives this.
    ImageDrive(Kind kind, qint64 bytes, const std::optional<FileURL>& imageFolder = std::nullopt);
    ~ImageDrive();
    ImageDrive(const ImageDrive&) = delete;
    ImageDrive& operator=(const ImageDrive&) = delete;

    /// Empty when the file system is there.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] FileURL root() const;

    // Of ext4.

    /// The drive finds an error in itself and takes no more writes.
    void failInside() const;
    /// The drive is gone from one moment to the next, with all that it had not yet written; then it
    /// is there again.
    void pull() const;
    void putBack() const;

private:
    [[nodiscard]] std::string mount() const;
    /// Where the kernel shows the file system of the device, as long as anybody holds it.
    [[nodiscard]] std::string folderOfSystem() const;
    /// Whether nobody holds the unmounted file system any more within a minute.
    [[nodiscard]] bool isLeftSoon() const;

    Kind m_kind;
    QTemporaryDir m_folder;
    QString m_device; ///< empty where there is none
    std::string m_reasonMissing;
};

} // namespace keelbright::testing

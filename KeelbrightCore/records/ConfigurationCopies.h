#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <expected>

namespace keelbright {

/// The copies beside `config.json` of what a write to it would lose: one of the whole settings while they
/// are written in steps, and dated ones of files that could not be loaded. Main thread only.
class ConfigurationCopies
{
public:
    /// `file` is the file itself, not a link to it.
    explicit ConfigurationCopies(FileURL file);

    /// The text of the whole copy.
    [[nodiscard]] std::expected<QByteArray, FileError> whole() const;
    /// Makes the present file the whole copy; takes no room where the drive knows second names.
    [[nodiscard]] std::expected<void, FileError> keepWhole() const;
    [[nodiscard]] std::expected<void, FileError> removeWhole() const;
    /// Makes the whole copy the file again. Where that fails, the copy stays.
    [[nodiscard]] std::expected<void, FileError> putWholeBack() const;

    /// Keeps the present file, which can't be loaded, under a name with the date, and gives its place.
    /// Only the last three such copies stay.
    [[nodiscard]] std::expected<FileURL, FileError> keepUnusableFile() const;
    /// The same with a whole copy that can't be loaded.
    [[nodiscard]] std::expected<FileURL, FileError> keepUnusableCopy() const;

private:
    [[nodiscard]] std::expected<FileURL, FileError> keepUnusable(const FileURL& unusable) const;
    /// Removes unusable copies; `latest` counts as the newest whatever the clock says.
    void removeOldest(const FileURL& latest) const;

    FileURL m_file;
    FileURL m_whole;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/records/ConfigurationCopies.h"
#include "KeelbrightCore/records/ConfigurationText.h"

#include <expected>
#include <optional>

namespace keelbright {

/// Keeps the configuration in one JSON file, which each load reads and each save replaces. Main thread
/// only. No call fails: a problem is a line on standard output and an empty or unchanged result.
///
/// No save loses what the file held (see `ConfigurationCopies`). Where what it holds can't be kept, the
/// save fails.
class BackupConfigStore
{
public:
    /// The one instance of the program, made on first use from the application support folder.
    [[nodiscard]] static BackupConfigStore& shared();

    /// Creates the folder "Keelbright" inside `applicationSupport`.
    explicit BackupConfigStore(const FileURL& applicationSupport);

    /// The content of the file; of its whole copy where an earlier rewrite did not get to its end.
    [[nodiscard]] AppConfiguration load();
    void save(const AppConfiguration& configuration);

    /// Whether the last save has succeeded; false before the first one.
    [[nodiscard]] bool isSaved() const { return m_isSaved; }

    /// The saves up to `endRewrite` write in steps what has just been loaded, the destination last: until
    /// the last one has succeeded, a copy of the whole stays beside the file, and the next load uses it.
    void beginRewrite();
    void endRewrite();

    [[nodiscard]] const FileURL& configURL() const { return m_configURL; }

private:
    /// What the last load was made of.
    enum class Origin { nothing, file, copy };

    [[nodiscard]] std::optional<AppConfiguration> loadFile();
    [[nodiscard]] std::optional<AppConfiguration> loadCopy();
    /// Makes sure that a write to the file loses nothing.
    [[nodiscard]] std::expected<void, FileError> keepWhatIsThere();
    [[nodiscard]] std::expected<void, FileError> write(const AppConfiguration& configuration);
    void removeCopy();

    FileURL m_configURL;
    ConfigurationCopies m_copies;
    ConfigurationText m_text;
    Origin m_origin = Origin::nothing;
    bool m_isFileUnusable = false; ///< holds what could not be loaded and is not kept yet
    bool m_isCopyUnusable = false; ///< likewise the whole copy
    bool m_needsCopy = false;      ///< a rewrite has begun, and its copy is still to be made
    bool m_isRewriting = false;
    bool m_isSaved = false;
    bool m_mayHaveCopy = true; ///< a whole copy may be there
};

} // namespace keelbright

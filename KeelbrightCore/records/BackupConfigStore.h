#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/records/ConfigurationText.h"

namespace keelbright {

/// Keeps the configuration in one JSON file, which each load reads and each save replaces. Main thread
/// only. No call fails: a problem is a line on standard output and an empty or unchanged result.
class BackupConfigStore
{
public:
    /// The one instance of the program, made on first use from the application support folder.
    [[nodiscard]] static BackupConfigStore& shared();

    /// Creates the folder "Keelbright" inside `applicationSupport`.
    explicit BackupConfigStore(const FileURL& applicationSupport);

    [[nodiscard]] AppConfiguration load() const;
    void save(const AppConfiguration& configuration);

    [[nodiscard]] const FileURL& configURL() const { return m_configURL; }

private:
    FileURL m_configURL;
    ConfigurationText m_text;
};

} // namespace keelbright

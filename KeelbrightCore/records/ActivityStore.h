#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/records/ActivityEntry.h"

namespace keelbright {

/// The log of every action that changed something: one JSON file, newest first, at most
/// `maxEntries`. No copy in memory, no lock: main thread only. The log is a courtesy; every
/// failure is swallowed.
class ActivityStore
{
public:
    static constexpr qsizetype maxEntries = 500;

    /// The one instance of the program, made on first use from the application support folder.
    [[nodiscard]] static ActivityStore& shared();

    /// Creates the folder "Keelbright" inside `applicationSupport`.
    explicit ActivityStore(const FileURL& applicationSupport);

    /// Newest first; empty where the file can't be read as a whole.
    [[nodiscard]] QList<ActivityEntry> load() const;
    /// Puts the entry at the head and drops the oldest ones above `maxEntries`.
    void append(const ActivityEntry& entry) const;
    /// Leaves an empty log.
    void clear() const;
    /// The whole log as CSV, without a line feed at the end.
    [[nodiscard]] QString exportCSV() const;

    [[nodiscard]] const FileURL& fileURL() const { return m_fileURL; }

private:
    void save(const QList<ActivityEntry>& entries) const;
    FileURL m_fileURL;
};

} // namespace keelbright

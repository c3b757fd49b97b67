#pragma once

#include "KeelbrightCore/records/ActivityEntry.h"

#include <QCoreApplication>
#include <QList>

namespace keelbright {

class ActivityStore;
class FileChooser;

/// What the activity log screen shows and does: the log as it was when it was last loaded, and its
/// export and clearing. Main thread only; lives as long as its screen. It has no signals, as it changes
/// only in its calls.
class ActivityLogVM
{
    Q_DECLARE_TR_FUNCTIONS(ActivityLogVM)

public:
    /// What is handed in outlives the model. Starts empty.
    ActivityLogVM(ActivityStore& store, FileChooser& files);

    /// Newest first.
    [[nodiscard]] const QList<ActivityEntry>& entries() const { return m_entries; }

    /// Reads the log from disk.
    void load();
    /// Empties the log on disk and here.
    void clear();
    /// Asks where the log goes, and writes it there as it is on disk when this is called. In silence
    /// where the file can't be written. The model may be gone when the user answers.
    void exportCSV();

private:
    ActivityStore& m_store;
    FileChooser& m_files;
    QList<ActivityEntry> m_entries;
};

} // namespace keelbright

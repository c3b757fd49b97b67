#pragma once

#include "KeelbrightCore/check/CheckReport.h"
#include "KeelbrightCore/check/ChecksumReader.h"
#include "KeelbrightCore/check/CopyReading.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

namespace keelbright {

/// One check of the copies of a machine against a list of checksums, for where the originals are gone. A file
/// of the list that is not on the drive any more is a fault; a copy that the list does not know is counted as
/// one without an original. Belongs to one thread.
class ListCheck
{
public:
    /// `deviceFolder` is that of the machine whose copies are checked. The last two outlive this.
    ListCheck(FileURL list, FileURL deviceFolder, CheckProgress& progress, const Cancellation& cancellation);

    [[nodiscard]] CheckReport run();

private:
    struct Entry
    {
        CheckedItem item;
        QByteArray digest;
    };

    void checkAll(ChecksumReader& list);
    void checkWindow();
    void checkEntry(CopyReadAhead& pieces, const Entry& entry);
    void checkFile(CopyReadAhead& pieces, const Entry& entry, const ItemStatus& copy);
    void reportUnreadable(const CheckedItem& item, const FileError& error);
    [[nodiscard]] CheckReport failed(const FileError& error);
    [[nodiscard]] bool stops() const;

    FileURL m_list;
    FileURL m_deviceFolder;
    CheckProgress& m_progress;
    const Cancellation& m_cancellation;
    CheckReport m_report;
    qint64 m_listWrittenAt = 0;
    qint64 m_found = 0;                     ///< copies that the list knows
    std::unique_ptr<ReadOnlyTree> m_copies; ///< for reading ahead
    std::unique_ptr<ReadOnlyTree> m_again;  ///< for this thread
    QList<Entry> m_window;
    Sha256 m_checksum;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/check/CheckJob.h"
#include "KeelbrightCore/check/CheckReport.h"
#include "KeelbrightCore/check/CopyJudge.h"
#include "KeelbrightCore/check/CopyReading.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

namespace keelbright {

/// One check of the copies of a machine against their originals. Belongs to one thread.
class OriginalsCheck
{
public:
    /// `deviceFolder` is that of the machine whose copies are checked. All others outlive
    /// this.
    OriginalsCheck(const CheckJob& job, FileURL deviceFolder, CheckProgress& progress,
                   const Cancellation& cancellation);

    [[nodiscard]] CheckReport run();

private:
    [[nodiscard]] bool openCopies();
    void readCopies();
    void readCopiesIn(const FileURL& root);
    void checkWindow();
    void checkItem(CopyReadAhead& pieces, const CheckedItem& item);
    void checkFile(CopyReadAhead& pieces, const CheckedItem& item, const ItemStatus& copy);
    void reportUnreadable(const CheckedItem& item, int code);
    void reportUnreadableFolder(const FileURL& folder, const FileError& error);
    void lookForNew();
    void lookForNew(const BackupSource& source);
    [[nodiscard]] FileScanner::LeftOut ownFoldersWhileFilling(const QByteArray& root);
    [[nodiscard]] bool hasCopy(const DirectoryEnumerator& item, const QByteArray& root);

    [[nodiscard]] QList<Original> originalsOf(const CheckedItem& item) const;
    void record(const CheckFinding& finding);
    void keepChecksum(const CheckedItem& item, const CheckFinding& finding, const QByteArray& digest);
    [[nodiscard]] bool stops() const;

    const CheckJob& m_job;
    FileURL m_deviceFolder;
    CheckProgress& m_progress;
    const Cancellation& m_cancellation;
    CheckReport m_report;
    FileURL m_latest;
    Originals m_originals;
    std::unique_ptr<ReadOnlyTree> m_device; ///< where there are no copies
    std::unique_ptr<ReadOnlyTree> m_copies; ///< for reading ahead
    std::unique_ptr<ReadOnlyTree> m_again;  ///< for this thread
    QList<CheckedItem> m_window;
    std::unique_ptr<CopyJudge> m_judge; ///< where there are copies
    Sha256 m_checksum;
};

} // namespace keelbright

#include "KeelbrightCore/check/ListCheck.h"

#include "KeelbrightCore/check/CheckProgress.h"

#include <algorithm>

namespace keelbright {

namespace {

const QByteArray copiesFolder = "Latest/Personal Files";

CheckedItem itemAt(const QByteArray& path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return {.folder = slash < 0 ? QByteArray() : path.first(slash), .name = path.sliced(slash + 1)};
}

FileError unreadable(const CheckedItem& item, int code)
{
    return FileError::fromCode(FileError::Operation::read, QString::fromUtf8(item.name), code);
}

} // namespace

ListCheck::ListCheck(FileURL list, FileURL deviceFolder, CheckProgress& progress,
                     const Cancellation& cancellation)
    : m_list(std::move(list))
    , m_deviceFolder(std::move(deviceFolder))
    , m_progress(progress)
    , m_cancellation(cancellation)
{
    m_report.isAgainstList = true;
    m_report.deviceFolder = m_deviceFolder;
    m_report.personalFiles = m_deviceFolder.appendingNative(copiesFolder);
}

CheckReport ListCheck::run()
{
    auto list = ChecksumReader::open(m_list);
    if (!list)
        return failed(list.error());
    auto copies = ReadOnlyTree::open(m_deviceFolder);
    auto again = ReadOnlyTree::open(m_deviceFolder);
    if (!copies || !again)
        return failed(copies ? again.error() : copies.error());
    m_copies = std::move(*copies);
    m_again = std::move(*again);
    m_listWrittenAt = list->writtenAt();
    m_report.isFromDrive = m_again->liesOnLocalDrive();
    const TreeSum all = countCopies(m_report.personalFiles, Links::leftOut, m_cancellation);
    m_report.copies = all.entries;
    m_progress.setTotal(all.entries, all.bytes);
    m_progress.setPhase(CheckProgress::Phase::reading);
    checkAll(*list);
    m_report.unknownLines = list->unknownLines();
    if (list->code() != 0)
        return failed(
            FileError::fromCode(FileError::Operation::read, m_list.lastPathComponent(), list->code()));
    if (m_report.end == CheckReport::End::complete && m_cancellation.isCancelled())
        m_report.end = CheckReport::End::cancelled;
    if (m_report.end == CheckReport::End::complete)
        m_report.add(CopyVerdict::onlyOnDrive, std::max<qint64>(m_report.copies - m_found, 0));
    return std::move(m_report);
}

CheckReport ListCheck::failed(const FileError& error)
{
    m_report.end = CheckReport::End::failed;
    m_report.error = error;
    return std::move(m_report);
}

bool ListCheck::stops() const
{
    return m_cancellation.isCancelled() || m_report.end != CheckReport::End::complete;
}

void ListCheck::checkAll(ChecksumReader& list)
{
    while (!stops()) {
        auto line = list.next();
        if (!line)
            break;
        m_window.append({itemAt(line->path), std::move(line->digest)});
        if (m_window.size() == itemsAtATime)
            checkWindow();
    }
    checkWindow();
}

void ListCheck::checkWindow()
{
    // In the order of the list: whoever wrote it has read the drive in that order.
    QList<CheckedItem> items;
    items.reserve(m_window.size());
    for (const Entry& entry : std::as_const(m_window))
        items.append(entry.item);
    CopyReadAhead pieces(*m_copies, items);
    for (const Entry& entry : std::as_const(m_window)) {
        if (stops())
            break;
        checkEntry(pieces, entry);
    }
    m_window.clear();
}

void ListCheck::checkEntry(CopyReadAhead& pieces, const Entry& entry)
{
    m_progress.beginFile(entry.item.name);
    const CopyPiece begin = pieces.next();
    if (begin.code != 0)
        reportUnreadable(entry.item, unreadable(entry.item, begin.code));
    else if (begin.status.type == EntryType::regularFile)
        checkFile(pieces, entry, begin.status);
    else
        m_report.add(CopyVerdict::changedSince); // replaced by something else
    if (stops())
        return;
    ++m_report.checked;
    m_progress.endFile();
}

void ListCheck::checkFile(CopyReadAhead& pieces, const Entry& entry, const ItemStatus& copy)
{
    if (entry.item.folder == copiesFolder || entry.item.folder.startsWith(copiesFolder + '/'))
        ++m_found;
    const CopyReading reading = readCopy(pieces, copy, nullptr, m_checksum, m_progress, m_cancellation);
    if (stops())
        return;
    if (reading.code != 0) {
        reportUnreadable(entry.item, unreadable(entry.item, reading.code));
        return;
    }
    m_report.isFromDrive = m_report.isFromDrive && reading.isFromDrive;
    if (reading.endsEarly)
        reportUnreadable(entry.item, {FileError::Operation::read, QString::fromUtf8(entry.item.name),
                                      FileError::Reason::endsEarly});
    else if (reading.digest == entry.digest)
        m_report.add(CopyVerdict::same);
    else if (copy.change > m_listWrittenAt || copy.modification > m_listWrittenAt)
        m_report.add(CopyVerdict::changedSince); // a later backup has replaced it
    else {
        m_report.add(CheckFinding{.verdict = CopyVerdict::differs,
                                  .item = m_deviceFolder.appendingNative(entry.item.path()),
                                  .reason = CheckFinding::Reason::differsFromList,
                                  .error = {}});
        m_progress.addFault();
    }
}

void ListCheck::reportUnreadable(const CheckedItem& item, const FileError& error)
{
    if (m_again->isGone(error.code)) {
        m_report.end = CheckReport::End::driveGone;
        return;
    }
    m_report.add(CheckFinding{.verdict = CopyVerdict::unreadable,
                              .item = m_deviceFolder.appendingNative(item.path()),
                              .error = error});
    m_progress.addFault();
}

} // namespace keelbright

#include "KeelbrightCore/check/OriginalsCheck.h"

#include "KeelbrightCore/check/CheckProgress.h"
#include "KeelbrightCore/check/ChecksumSpool.h"
#include "KeelbrightCore/platform/files/FileManager.h"

#include <algorithm>

namespace keelbright {

namespace {

const QByteArray personalFiles = "Personal Files";

/// The path of a folder of copies below "Personal Files".
QByteArray belowPersonalFiles(const QByteArray& folder)
{
    return folder.mid(personalFiles.size() + 1);
}

} // namespace

OriginalsCheck::OriginalsCheck(const CheckJob& job, FileURL deviceFolder, CheckProgress& progress,
                               const Cancellation& cancellation)
    : m_job(job)
    , m_deviceFolder(std::move(deviceFolder))
    , m_progress(progress)
    , m_cancellation(cancellation)
    , m_latest(m_deviceFolder.appendingNative("Latest"))
    , m_originals(job.sources)
{
    m_report.deviceFolder = m_deviceFolder;
    m_report.personalFiles = m_latest.appendingNative(personalFiles);
}

CheckReport OriginalsCheck::run()
{
    if (!openCopies())
        return std::move(m_report);
    for (const Originals::Failure& failure : m_originals.failures())
        record({.verdict = CopyVerdict::originalUnreadable, .item = failure.source, .error = failure.error});
    if (m_copies) {
        const TreeSum all = countCopies(m_report.personalFiles, Links::counted, m_cancellation);
        m_report.copies = all.entries;
        m_progress.setTotal(all.entries, all.bytes);
        m_report.checksums = ChecksumSpool::create();
        m_progress.setPhase(CheckProgress::Phase::reading);
        readCopies();
    }
    m_progress.setPhase(CheckProgress::Phase::lookingForNew);
    lookForNew();
    if (m_report.end == CheckReport::End::complete && m_cancellation.isCancelled())
        m_report.end = CheckReport::End::cancelled;
    return std::move(m_report);
}

/// False where the check can't begin; without copies the two trees stay null.
bool OriginalsCheck::openCopies()
{
    const auto destination = ReadOnlyTree::open(m_job.destination.value_or(m_deviceFolder));
    auto copies = ReadOnlyTree::open(m_deviceFolder, "Latest");
    auto again = ReadOnlyTree::open(m_deviceFolder, "Latest");
    if (destination && !copies && isMissing(copies.error().code)) {
        if (auto device = ReadOnlyTree::open(m_deviceFolder))
            m_device = std::move(*device);
        return true;
    }
    if (!destination || !copies || !again) {
        m_report.end = CheckReport::End::failed;
        if (!destination)
            m_report.error = destination.error();
        else
            m_report.error = copies ? again.error() : copies.error();
        return false;
    }
    m_copies = std::move(*copies);
    m_again = std::move(*again);
    m_judge = std::make_unique<CopyJudge>(m_latest, *m_again, m_cancellation);
    m_report.isFromDrive = m_again->liesOnLocalDrive();
    return true;
}

bool OriginalsCheck::stops() const
{
    return m_cancellation.isCancelled() || m_report.end != CheckReport::End::complete;
}

void OriginalsCheck::readCopies()
{
    for (const FileURL& folder : foldersOfCopies(m_report.personalFiles)) {
        if (!stops())
            readCopiesIn(folder);
    }
    checkWindow();
}

void OriginalsCheck::readCopiesIn(const FileURL& root)
{
    const auto walk = FileManager::defaultManager().enumerator(root, walkOptions);
    if (!walk) {
        if (!isMissing(walk.error().code))
            reportUnreadableFolder(root, walk.error());
        return;
    }
    QByteArray above = personalFiles;
    if (root != m_report.personalFiles)
        above.append('/').append(root.nativeLastPathComponent());
    (*walk)->setErrorHandler(
        [this](const FileURL& folder, const FileError& error) { reportUnreadableFolder(folder, error); });
    while (!stops() && (*walk)->next()) {
        const EntryType type = (*walk)->type();
        if (type != EntryType::regularFile && type != EntryType::symbolicLink)
            continue;
        const QByteArrayView below = (*walk)->relativeFolder();
        QByteArray folder = above;
        if (!below.isEmpty())
            folder.append('/').append(below);
        // Copies of one folder share the bytes of its path.
        if (!m_window.isEmpty() && m_window.last().folder == folder)
            folder = m_window.last().folder;
        m_window.append({folder, (*walk)->name().toByteArray(), (*walk)->number()});
        if (m_window.size() == itemsAtATime)
            checkWindow();
    }
}

void OriginalsCheck::checkWindow()
{
    std::ranges::sort(m_window, {}, &CheckedItem::number);
    CopyReadAhead pieces(*m_copies, m_window);
    for (const CheckedItem& item : std::as_const(m_window)) {
        if (stops())
            break;
        checkItem(pieces, item);
    }
    m_window.clear();
}

void OriginalsCheck::checkItem(CopyReadAhead& pieces, const CheckedItem& item)
{
    m_progress.beginFile(item.name);
    const CopyPiece begin = pieces.next();
    // What was removed since it was listed is no copy any more.
    const bool isCopy = !isMissing(begin.code);
    if (begin.code != 0)
        reportUnreadable(item, begin.code);
    else if (begin.status.type == EntryType::regularFile)
        checkFile(pieces, item, begin.status);
    else if (begin.status.type == EntryType::symbolicLink)
        record(m_judge->judgeLink(item, begin.status, originalsOf(item)));
    if (stops())
        return;
    if (isCopy)
        ++m_report.checked;
    m_progress.endFile();
}

void OriginalsCheck::checkFile(CopyReadAhead& pieces, const CheckedItem& item, const ItemStatus& copy)
{
    const QList<Original> originals = originalsOf(item);
    auto comparison = m_judge->beginComparison(originals, copy);
    ContentComparison* compared = comparison ? &*comparison : nullptr;
    const CopyReading reading = readCopy(pieces, copy, compared, m_checksum, m_progress, m_cancellation);
    if (stops())
        return;
    if (reading.code != 0) {
        reportUnreadable(item, reading.code);
        return;
    }
    m_report.isFromDrive = m_report.isFromDrive && reading.isFromDrive;
    const CheckFinding result =
        reading.endsEarly ? m_judge->endsEarly(item) : m_judge->judgeFile(item, copy, originals, compared);
    if (stops())
        return;
    keepChecksum(item, result, reading.digest);
    record(result);
}

QList<Original> OriginalsCheck::originalsOf(const CheckedItem& item) const
{
    return m_originals.of(belowPersonalFiles(item.folder), item.name);
}

void OriginalsCheck::reportUnreadable(const CheckedItem& item, int code)
{
    if (m_again->isGone(code))
        m_report.end = CheckReport::End::driveGone;
    else if (!isMissing(code))
        record(m_judge->unreadable(item, code));
}

void OriginalsCheck::reportUnreadableFolder(const FileURL& folder, const FileError& error)
{
    record({.verdict = CopyVerdict::unreadable, .item = folder, .error = error});
    if (m_report.end == CheckReport::End::complete)
        ++m_report.unreadableFolders;
}

void OriginalsCheck::record(const CheckFinding& finding)
{
    const bool isFault =
        finding.verdict == CopyVerdict::differs || finding.verdict == CopyVerdict::unreadable;
    // Pulled out while the copy was looked at once more: that is no fault of the copy.
    if (isFault && m_again->isGone(finding.error ? finding.error->code : 0)) {
        m_report.end = CheckReport::End::driveGone;
        return;
    }
    if (!isFault && finding.verdict != CopyVerdict::originalUnreadable) {
        m_report.add(finding.verdict);
        return;
    }
    m_report.add(finding);
    if (isFault)
        m_progress.addFault();
}

void OriginalsCheck::keepChecksum(const CheckedItem& item, const CheckFinding& finding,
                                  const QByteArray& digest)
{
    // A damaged copy must not become what later checks take for right.
    if (finding.verdict == CopyVerdict::differs || finding.verdict == CopyVerdict::unreadable)
        return;
    if (m_report.checksums && !digest.isEmpty())
        m_report.checksums->add({digest, "Latest/" + item.path()});
}

void OriginalsCheck::lookForNew()
{
    for (const BackupSource& source : m_job.sources) {
        if (source.isEnabled && !stops())
            lookForNew(source);
    }
}

void OriginalsCheck::lookForNew(const BackupSource& source)
{
    const auto items = FileManager::defaultManager().enumerator(
        source.url, walkOptions | DirectoryEnumerator::Option::followsRootLink);
    if (!items)
        return; // reported at the beginning
    (*items)->setErrorHandler([this](const FileURL& folder, const FileError& error) {
        record({.verdict = CopyVerdict::originalUnreadable, .item = folder, .error = error});
    });
    const QByteArray name = source.url.nativeLastPathComponent();
    const QByteArray root = name == "/" ? personalFiles : personalFiles + '/' + name;
    const FileScanner::LeftOut isLeftOut = ownFoldersWhileFilling(root);
    while (!stops() && (*items)->next()) {
        const bool isCopied = FileScanner::handlingOf(**items, isLeftOut) == FileScanner::Handling::copied;
        if (isCopied && (*items)->type() != EntryType::other && !hasCopy(**items, root))
            m_report.add(CopyVerdict::notBackedUp);
    }
}

/// What a backup leaves out while it fills the folder of copies at `root`.
FileScanner::LeftOut OriginalsCheck::ownFoldersWhileFilling(const QByteArray& root)
{
    if (m_again)
        return [this, copy = m_again->folderId(root)](const DirectoryEnumerator& folder) {
            return m_again->isOwnFolder(folder, copy);
        };
    // It would make the copies in the folder of the device, which may hold reports.
    if (m_device)
        return [this](const DirectoryEnumerator& folder) { return m_device->isRoot(folder); };
    return {};
}

bool OriginalsCheck::hasCopy(const DirectoryEnumerator& item, const QByteArray& root)
{
    if (!m_again)
        return false;
    QByteArray folder = root;
    if (!item.relativeFolder().isEmpty())
        folder.append('/').append(item.relativeFolder());
    const auto copy = m_again->status(folder, item.name().toByteArray());
    // Where it can't be read, reading the copies has reported it.
    return copy ? copy->type != EntryType::directory : !isMissing(copy.error());
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/SystemCopyDestination.h"

#include "KeelbrightCore/platform/files/FolderOpening.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/SystemCopyWorker.h"
#include "KeelbrightCore/platform/system/OpenFileLimit.h"

#include <algorithm>
#include <fcntl.h>

namespace keelbright {

namespace {

/// One at a time where a process may have few files open. A copy takes four at worst: itself, what it
/// replaces, its folder and that of its source.
qsizetype maximumPreparedCopies()
{
    constexpr rlim_t restOfTheProgram = 128;
    constexpr rlim_t maximum = 2'000;
    const rlim_t limit = OpenFileLimit::current();
    if (limit <= restOfTheProgram)
        return 1;
    return static_cast<qsizetype>(std::clamp<rlim_t>((limit - restOfTheProgram) / 5, 1, maximum));
}

QByteArrayList componentsOf(QByteArrayView path)
{
    QByteArrayList names;
    while (!path.isEmpty()) {
        const QByteArrayView name = takeComponent(path);
        if (!name.isEmpty())
            names.append(name.toByteArray());
    }
    return names;
}

/// How many folders hold the current entry, from the root of its walk on.
qsizetype foldersDownTo(const DirectoryEnumerator& items)
{
    const QByteArrayView path = items.relativeFolder();
    return path.isEmpty() ? 1 : 2 + path.count('/');
}

class SystemFilledFolder : public FilledFolder
{
public:
    /// `nameIfItGoes` is empty for a folder that is never removed.
    SystemFilledFolder(FileDescriptor folder, const CopyAttributes::FolderEnd& end, QByteArray nameIfItGoes)
        : m_folder(std::move(folder))
        , m_end(end)
        , m_nameIfItGoes(std::move(nameIfItGoes))
    {}

    void complete() override { CopyAttributes::endFolder(m_folder.get(), m_end); }

    void giveUp() override
    {
        if (m_nameIfItGoes.isEmpty() || !removeIfEmpty(m_folder.get(), m_nameIfItGoes))
            complete();
    }

private:
    FileDescriptor m_folder;
    CopyAttributes::FolderEnd m_end;
    QByteArray m_nameIfItGoes;
};

} // namespace

std::expected<std::unique_ptr<CopyDestination>, FileError>
SystemCopyDestination::open(const FileURL& base, QByteArrayView relativeFolder)
{
    const auto open = [&] {
        return ::open(base.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    };
    const FileDescriptor folder(retrying(open));
    if (!folder.isOpen())
        return failure(FileError::Operation::opened, base, errno);
    auto anchorFolder = openOrCreatePath(folder.get(), relativeFolder);
    if (!anchorFolder)
        return std::unexpected(anchorFolder.error());
    auto anchor = CopyAnchor::of(base.appendingNative(relativeFolder), std::move(*anchorFolder));
    if (!anchor)
        return std::unexpected(anchor.error());
    FileDescriptor chainRoot = FileDescriptor::duplicate((*anchor)->descriptor());
    if (!chainRoot.isOpen())
        return failure(FileError::Operation::opened, base, errno);
    return std::unique_ptr<CopyDestination>(
        new SystemCopyDestination(std::move(*anchor), std::move(chainRoot)));
}

SystemCopyDestination::SystemCopyDestination(std::shared_ptr<CopyAnchor> anchor, FileDescriptor chainRoot)
    : m_anchor(std::move(anchor))
    , m_chain(std::move(chainRoot))
    , m_flushesBeforeReplacing(!SystemCalls::writesDataBeforeNames(m_anchor->descriptor()))
    , m_maximumPrepared(maximumPreparedCopies())
{}

bool SystemCopyDestination::isInPlace()
{
    return m_anchor->isInPlace();
}

qsizetype SystemCopyDestination::maximumPrepared()
{
    // Where case folds, a plan depends on whether the copies planned before it have got their names. Where
    // files can't be without a name, a kill leaves the temporary names of all that are prepared.
    return m_letterCase.folds() || !hasUnnamedFiles() ? 1 : m_maximumPrepared;
}

bool SystemCopyDestination::hasUnnamedFiles()
{
    if (!m_hasUnnamedFiles) {
        const auto file = SystemCalls::openUnnamed(m_chain.descriptor(), S_IRUSR | S_IWUSR);
        m_hasUnnamedFiles = file.has_value() || file.error() != ENOTSUP;
    }
    return *m_hasUnnamedFiles;
}

void SystemCopyDestination::setFilledFolderHandler(FilledFolderHandler handler)
{
    m_filledFolderHandler = std::move(handler);
}

std::expected<void, FileError> SystemCopyDestination::enterFolder(QByteArrayView relativeFolder,
                                                                  const DirectoryEnumerator* items)
{
    if (auto inPlace = m_anchor->checkPlace(); !inPlace)
        return inPlace;
    m_sourceFolder.reset();
    if (m_chain.relativePath() == relativeFolder)
        return {};
    m_targetFolder.reset();
    auto entered = goTo(relativeFolder, items);
    if (entered || entered.error().code != ENOENT)
        return entered;
    // Somebody has removed a folder on the way, perhaps the whole destination.
    if (auto inPlace = m_anchor->checkPlaceNow(); !inPlace)
        return inPlace;
    m_chain.leaveAll();
    return goTo(relativeFolder, items);
}

std::expected<void, FileError> SystemCopyDestination::goTo(QByteArrayView relativeFolder,
                                                           const DirectoryEnumerator* items)
{
    while (!isAtOrBelow(relativeFolder, m_chain.relativePath())) {
        if (!leaveFolder())
            m_chain.leaveAll(); // the folders were moved meanwhile: start at the anchor again
    }
    const QByteArrayList names = componentsOf(relativeFolder.sliced(m_chain.relativePath().size()));
    const qsizetype sourceFolders = items ? foldersDownTo(*items) : 0;
    const qsizetype copies = std::min(names.size(), sourceFolders);
    std::optional<SourceFolders> sources;
    if (copies > 0)
        sources.emplace(*items, copies - 1);
    for (qsizetype index = 0; index < names.size(); ++index) {
        const bool isCopy = names.size() - index <= copies;
        SourceFolders* source = sources && isCopy ? &*sources : nullptr;
        const bool isSource = source && names.size() - index == sourceFolders;
        if (isSource)
            noteSource(m_chain.relativePath() + '/' + names[index], source->descriptor());
        if (const auto entered = enterOrCreate(names[index], source); !entered)
            return entered;
        if (isSource)
            beginSource();
        if (source && index + 1 < names.size())
            source->goDown(names[index + 1]);
    }
    return {};
}

std::expected<void, FileError> SystemCopyDestination::enterOrCreate(const QByteArray& name,
                                                                    const SourceFolders* sources)
{
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), name))
        return failure(FileError::Operation::created, name, FileError::Reason::differsInCaseOnly);
    const QByteArray twin = twinOf(name);
    if (!twin.isEmpty() && areTheSame(m_chain.descriptor(), twin, name))
        return failure(FileError::Operation::created, name, FileError::Reason::nameTakenForAnother);
    auto opened = openOrCreateFolder(m_chain.descriptor(), name, sources ? S_IRWXU : 0777);
    if (!opened)
        return std::unexpected(opened.error());
    Level level{.likelyName = opened->wasCreated ? NameIs::free : NameIs::taken,
                .goesIfEmpty = opened->wasCreated};
    // Where the source can't be opened any more, a new folder stays closed.
    if (sources && sources->descriptor() >= 0) {
        const auto end = m_attributes.beginFolder(sources->descriptor(), opened->folder.get(),
                                                  m_isShared && !opened->wasCreated);
        if (!end)
            return failure(FileError::Operation::created, name, end.error());
        level.end = *end;
    }
    m_letterCase.learn(opened->folder.get(), name);
    m_chain.enter(std::move(opened->folder), name, std::move(level));
    return {};
}

/// To be called before the copy of a source itself is entered, with the open source.
void SystemCopyDestination::noteSource(const QByteArray& copy, int source)
{
    const FolderId id = FolderId::of(source);
    Filling& filling = m_fillings[copy];
    if (filling.firstSource == FolderId())
        filling.firstSource = id;
    filling.isShared = filling.isShared || filling.firstSource != id;
    m_isShared = filling.isShared;
}

/// To be called when it has been entered.
void SystemCopyDestination::beginSource()
{
    m_chain.data().goesIfEmpty = false; // it stays, even without content
    m_copyOfSource = FolderId::of(m_chain.descriptor());
}

/// Goes back to the folder around; false where that could not be reached.
bool SystemCopyDestination::leaveFolder()
{
    const Level& level = m_chain.data();
    if (level.end && m_filledFolderHandler) {
        FileDescriptor folder = FileDescriptor::duplicate(m_chain.descriptor());
        QByteArray nameIfItGoes;
        if (level.goesIfEmpty)
            nameIfItGoes = m_chain.relativePath().sliced(m_chain.relativePath().lastIndexOf('/') + 1);
        if (folder.isOpen())
            m_filledFolderHandler(
                std::make_unique<SystemFilledFolder>(std::move(folder), *level.end, std::move(nameIfItGoes)));
    }
    return m_chain.leave().has_value();
}

void SystemCopyDestination::leaveFolders()
{
    m_sourceFolder.reset();
    m_targetFolder.reset();
    while (m_chain.depth() > 0) {
        if (!leaveFolder())
            m_chain.leaveAll();
    }
}

bool SystemCopyDestination::isOwnFolder(const DirectoryEnumerator& item) const
{
    return m_anchor->isOwnFolder(item, m_copyOfSource);
}

/// The name that this run has given the entered folder before, and that some drives take for this one.
QByteArray SystemCopyDestination::twinOf(QByteArrayView name)
{
    const bool foldsCase = m_letterCase.folds();
    const QByteArray earlier =
        m_formClaims.twinOf(m_chain.descriptor(), m_chain.relativePath(), name, foldsCase);
    const QByteArray here = m_chain.data().forms.twinOf(name, foldsCase); // perhaps it has no name yet
    return here.isEmpty() ? earlier : here;
}

std::expected<PlannedCopy, FileError> SystemCopyDestination::plan(const DirectoryEnumerator& item)
{
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), item.name()))
        return failure(FileError::Operation::copied, item.name(), FileError::Reason::differsInCaseOnly);
    if (const auto opened = openFolders(item); !opened)
        return failure(FileError::Operation::copied, item.name(), opened.error());
    return PlannedCopy{m_sourceFolder, m_targetFolder, item.name().toByteArray(), item.type(),
                       twinOf(item.name())};
}

std::expected<void, int> SystemCopyDestination::openFolders(const DirectoryEnumerator& item)
{
    if (!m_sourceFolder) {
        FileDescriptor folder = FileDescriptor::duplicate(item.folderDescriptor());
        if (!folder.isOpen())
            return std::unexpected(errno);
        m_sourceFolder = std::make_shared<const FileDescriptor>(std::move(folder));
    }
    if (!m_targetFolder) {
        FileDescriptor folder = FileDescriptor::duplicate(m_chain.descriptor());
        if (!folder.isOpen())
            return std::unexpected(errno);
        const mode_t umask = m_attributes.umaskIn(folder.get());
        m_targetFolder = std::make_shared<const TargetFolder>(
            TargetFolder{m_anchor, m_chain.relativePath(), std::move(folder), m_chain.data().likelyName,
                         umask, m_flushesBeforeReplacing});
    }
    return {};
}

std::unique_ptr<CopyWorker> SystemCopyDestination::makeWorker()
{
    return std::make_unique<SystemCopyWorker>(m_attributes);
}

std::expected<void, FileError> SystemCopyDestination::writeAtomically(const QByteArray& name,
                                                                      const QByteArray& data)
{
    return m_anchor->writeAtomically(name, data);
}

std::expected<void, FileError> SystemCopyDestination::flush()
{
    return m_anchor->flush();
}

} // namespace keelbright

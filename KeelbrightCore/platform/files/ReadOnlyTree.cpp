#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include "KeelbrightCore/platform/files/CopyAnchor.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/ReadingCalls.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

struct Nothing
{};

} // namespace

class ReadOnlyTree::Folders
{
public:
    Folders(std::shared_ptr<CopyAnchor> anchor, FileDescriptor root)
        : m_anchor(std::move(anchor))
        , m_chain(std::move(root), AccessTimes::kept)
    {}

    [[nodiscard]] CopyAnchor& anchor() const { return *m_anchor; }

    /// The open folder at that path.
    [[nodiscard]] std::expected<int, int> goTo(QByteArrayView folder)
    {
        while (!isAtOrBelow(folder, m_chain.relativePath())) {
            if (!m_chain.leave())
                m_chain.leaveAll(); // the folders were moved meanwhile: start at the root again
        }
        QByteArrayView rest = folder.sliced(m_chain.relativePath().size());
        while (!rest.isEmpty()) {
            const QByteArray name = takeComponent(rest).toByteArray();
            if (name.isEmpty())
                continue;
            if (const auto entered = m_chain.enter(name); !entered)
                return std::unexpected(entered.error());
        }
        return m_chain.descriptor();
    }

private:
    std::shared_ptr<CopyAnchor> m_anchor;
    FolderChain<Nothing> m_chain;
};

std::expected<std::unique_ptr<ReadOnlyTree>, FileError> ReadOnlyTree::open(const FileURL& base,
                                                                           QByteArrayView relativeFolder)
{
    const FileURL root = base.appendingNative(relativeFolder);
    FileDescriptor folder = openKeepingAccessTime(AT_FDCWD, base.nativePath().constData(),
                                                  O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    while (folder.isOpen() && !relativeFolder.isEmpty()) {
        const QByteArray name = takeComponent(relativeFolder).toByteArray();
        if (!name.isEmpty())
            folder = openFolder(folder.get(), name.constData(), AccessTimes::kept);
    }
    if (!folder.isOpen())
        return failure(FileError::Operation::opened, root, errno);
    FileDescriptor chainRoot = FileDescriptor::duplicate(folder.get());
    if (!chainRoot.isOpen())
        return failure(FileError::Operation::opened, root, errno);
    auto anchor = CopyAnchor::of(root, std::move(folder));
    if (!anchor)
        return std::unexpected(anchor.error());
    return std::unique_ptr<ReadOnlyTree>(
        new ReadOnlyTree(std::make_unique<Folders>(std::move(*anchor), std::move(chainRoot))));
}

ReadOnlyTree::ReadOnlyTree(std::unique_ptr<Folders> folders)
    : m_folders(std::move(folders))
{}

ReadOnlyTree::~ReadOnlyTree() = default;

std::expected<ItemStatus, int> ReadOnlyTree::status(QByteArrayView folder, const QByteArray& name)
{
    const auto opened = m_folders->goTo(folder);
    if (!opened)
        return std::unexpected(opened.error());
    return itemStatus(*opened, name.constData());
}

std::expected<QByteArray, int> ReadOnlyTree::linkTarget(QByteArrayView folder, const QByteArray& name)
{
    const auto opened = m_folders->goTo(folder);
    if (!opened)
        return std::unexpected(opened.error());
    return keelbright::linkTarget(*opened, name);
}

std::expected<ReadOnlyFile, int> ReadOnlyTree::openFile(QByteArrayView folder, const QByteArray& name)
{
    const auto opened = m_folders->goTo(folder);
    if (!opened)
        return std::unexpected(opened.error());
    return ReadOnlyFile::open(*opened, name.constData());
}

FolderId ReadOnlyTree::folderId(QByteArrayView folder)
{
    const auto opened = m_folders->goTo(folder);
    return opened ? FolderId::of(*opened) : FolderId();
}

bool ReadOnlyTree::isOwnFolder(const DirectoryEnumerator& item, const FolderId& copyOfSource) const
{
    return m_folders->anchor().isOwnFolder(item, copyOfSource);
}

bool ReadOnlyTree::isRoot(const DirectoryEnumerator& item) const
{
    struct stat status = {};
    return item.type() == EntryType::directory &&
           ::fstatat(item.folderDescriptor(), item.name().data(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           FolderId::of(status) == FolderId::of(m_folders->anchor().descriptor());
}

bool ReadOnlyTree::isGone(int code)
{
    // A drive in user space ends what is under way with ECONNABORTED, and answers ENOTCONN afterwards.
    const bool isLost = code == ENODEV || code == ENXIO || code == ENOTCONN || code == ECONNABORTED;
    return isLost || !m_folders->anchor().isInPlace() || isDriveTakenAway(m_folders->anchor().descriptor());
}

bool ReadOnlyTree::liesOnLocalDrive() const
{
    return keelbright::liesOnLocalDrive(m_folders->anchor().descriptor());
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include "KeelbrightCore/platform/files/DirectoryReader.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/ItemStatus.h"
#include "KeelbrightCore/platform/files/MachineRules.h"
#include "KeelbrightCore/platform/files/Package.h"
#include "KeelbrightCore/platform/files/ReadingCalls.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QByteArrayList>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

/// Links are not followed; the `errno` value of a failure.
std::expected<EntryType, int> typeFromInode(int folder, const char* name)
{
    struct stat status = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::unexpected(errno);
    return typeOfMode(status.st_mode);
}

AccessTimes accessTimesOf(DirectoryEnumerator::Options options)
{
    return options.testFlag(DirectoryEnumerator::Option::keepsAccessTimes) ? AccessTimes::kept
                                                                           : AccessTimes::noted;
}

/// The paths below the root of those places that lie there.
QByteArrayList pathsBelow(const FileURL& root, const QList<FileURL>& places)
{
    const QByteArray& path = root.nativePath();
    const QByteArray start = path.endsWith('/') ? path : path + '/';
    QByteArrayList paths;
    for (const FileURL& place : places) {
        if (place.nativePath().startsWith(start))
            paths.append(place.nativePath().sliced(start.size()));
    }
    return paths;
}

} // namespace

class DirectoryEnumerator::Walk
{
public:
    Walk(FileURL root, FileDescriptor folder, Options options, const QList<FileURL>& passedOver)
        : m_root(std::move(root))
        , m_options(options)
        , m_passedOver(passedOver)
        , m_pathsPassedOver(pathsBelow(m_root, passedOver))
        , m_chain(std::move(folder), accessTimesOf(options))
    {}

    bool next()
    {
        if (m_entersCurrent)
            enterCurrent();
        for (;;) {
            if (const auto entry = read()) {
                if (deliver(*entry))
                    return true;
                continue;
            }
            if (m_chain.depth() == 0)
                return false;
            leave();
        }
    }

    void skipDescendants() { m_entersCurrent = false; }

    void setErrorHandler(ErrorHandler handler) { m_errorHandler = std::move(handler); }

    std::unique_ptr<Walk> branchOff()
    {
        if (!m_entersCurrent)
            return nullptr;
        FileDescriptor folder = openFolder(m_chain.descriptor(), m_name, accessTimesOf(m_options));
        if (!folder.isOpen())
            return nullptr;
        m_entersCurrent = false;
        return std::make_unique<Walk>(currentFolder().appendingNative(m_name), std::move(folder), m_options,
                                      m_passedOver);
    }

    [[nodiscard]] FileURL currentFolder() const { return m_root.appendingNative(m_chain.relativePath()); }

    [[nodiscard]] const FolderChain<DirectoryReader>& chain() const { return m_chain; }

    [[nodiscard]] const char* name() const { return m_name; }

    [[nodiscard]] EntryType type() const { return m_type; }

    [[nodiscard]] quint64 number() const { return m_number; }

    /// Absent where the listing did not bring it.
    [[nodiscard]] std::optional<qint64> size() const { return m_size; }

private:
    /// The next entry of the current folder; nothing at its end, and where its listing breaks off.
    [[nodiscard]] std::optional<RawDirectoryEntry> read()
    {
        const auto entry = m_chain.data().read(m_chain.descriptor());
        if (entry)
            return *entry;
        waitingForMemory([&] { report(currentFolder(), FileError::Operation::listed, entry.error()); });
        return std::nullopt;
    }

    bool deliver(const RawDirectoryEntry& entry)
    {
        if (m_options.testFlag(Option::skipsHiddenFiles) && entry.name[0] == '.')
            return false;
        const auto type = entry.type ? std::expected<EntryType, int>(*entry.type)
                                     : typeFromInode(m_chain.descriptor(), entry.name);
        if (!type) {
            const auto reportEntry = [&] {
                report(currentFolder().appendingNative(entry.name), FileError::Operation::read, type.error());
            };
            if (type.error() != ENOENT)
                waitingForMemory(reportEntry);
            return false;
        }
        m_name = entry.name;
        m_type = *type;
        m_number = entry.number;
        m_size = entry.size;
        m_entersCurrent = m_type == EntryType::directory &&
                          !(m_options.testFlag(Option::skipsPackageDescendants) && isPackage(m_name)) &&
                          !isPassedOver();
        return true;
    }

    [[nodiscard]] bool isPassedOver() const
    {
        if (m_pathsPassedOver.isEmpty())
            return false;
        const QByteArray& folder = m_chain.relativePath();
        return m_pathsPassedOver.contains(folder.isEmpty() ? QByteArray(m_name) : folder + '/' + m_name);
    }

    void enterCurrent()
    {
        const QByteArray name(m_name);
        // The folder that is closed to make room for this one.
        if (const auto depth = m_chain.depthToClose())
            m_chain.dataAt(*depth).suspend(m_chain.descriptorAt(*depth));
        const auto entered = m_chain.enter(name);
        // What was removed since it was listed is no loss.
        if (!entered && entered.error() != ENOENT)
            report(currentFolder().appendingNative(name), FileError::Operation::opened, entered.error());
        m_entersCurrent = false; // only now: where memory runs out, the next call tries again
    }

    void leave()
    {
        const FileURL parent = currentFolder().deletingLastPathComponent();
        if (const auto left = m_chain.leave(); !left)
            waitingForMemory([&] { report(parent, FileError::Operation::listed, left.error()); });
    }

    void report(const FileURL& folder, FileError::Operation operation, int code) const
    {
        if (m_errorHandler)
            m_errorHandler(folder, FileError::fromCode(operation, folder.lastPathComponent(), code));
    }

    FileURL m_root;
    Options m_options;
    QList<FileURL> m_passedOver;
    QByteArrayList m_pathsPassedOver; ///< below the root; empty for most roots
    FolderChain<DirectoryReader> m_chain;
    ErrorHandler m_errorHandler;
    const char* m_name = nullptr;
    EntryType m_type = EntryType::other;
    quint64 m_number = 0;
    std::optional<qint64> m_size;
    bool m_entersCurrent = false;
};

std::expected<std::unique_ptr<DirectoryEnumerator>, FileError> DirectoryEnumerator::open(const FileURL& root,
                                                                                         Options options)
{
    return open(root, options, MachineRules::placesSeenTwice());
}

std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
DirectoryEnumerator::open(const FileURL& root, Options options, const QList<FileURL>& passedOver)
{
    const int linkFlag = options.testFlag(Option::followsRootLink) ? 0 : O_NOFOLLOW;
    const char* const path = root.nativePath().constData();
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | linkFlag;
    FileDescriptor folder = options.testFlag(Option::keepsAccessTimes)
                                ? openKeepingAccessTime(AT_FDCWD, path, flags)
                                : FileDescriptor(retrying([&] { return ::open(path, flags); }));
    if (!folder.isOpen())
        return failure(FileError::Operation::opened, root, errno);
    return std::unique_ptr<DirectoryEnumerator>(
        new DirectoryEnumerator(std::make_unique<Walk>(root, std::move(folder), options, passedOver)));
}

DirectoryEnumerator::DirectoryEnumerator(std::unique_ptr<Walk> walk)
    : m_walk(std::move(walk))
{}

DirectoryEnumerator::~DirectoryEnumerator() = default;

void DirectoryEnumerator::setErrorHandler(ErrorHandler handler)
{
    m_walk->setErrorHandler(std::move(handler));
}

bool DirectoryEnumerator::next()
{
    return m_walk->next();
}

void DirectoryEnumerator::skipDescendants()
{
    m_walk->skipDescendants();
}

std::unique_ptr<DirectoryEnumerator> DirectoryEnumerator::branchOff()
{
    auto branch = m_walk->branchOff();
    return branch ? std::unique_ptr<DirectoryEnumerator>(new DirectoryEnumerator(std::move(branch)))
                  : nullptr;
}

QByteArrayView DirectoryEnumerator::name() const
{
    return {m_walk->name(), static_cast<qsizetype>(std::strlen(m_walk->name()))};
}

EntryType DirectoryEnumerator::type() const
{
    return m_walk->type();
}

quint64 DirectoryEnumerator::number() const
{
    return m_walk->number();
}

bool DirectoryEnumerator::isDirectoryFollowingLinks() const
{
    if (m_walk->type() != EntryType::symbolicLink)
        return m_walk->type() == EntryType::directory;
    struct stat status = {};
    return ::fstatat(folderDescriptor(), m_walk->name(), &status, 0) == 0 && S_ISDIR(status.st_mode);
}

std::optional<qint64> DirectoryEnumerator::fileSize() const
{
    if (m_walk->type() == EntryType::directory)
        return std::nullopt;
    return m_walk->size() ? m_walk->size() : SystemCalls::sizeOf(folderDescriptor(), m_walk->name());
}

QByteArrayView DirectoryEnumerator::relativeFolder() const
{
    return m_walk->chain().relativePath();
}

FileURL DirectoryEnumerator::url() const
{
    return m_walk->currentFolder().appendingNative(name());
}

int DirectoryEnumerator::folderDescriptor() const
{
    return m_walk->chain().descriptor();
}

} // namespace keelbright

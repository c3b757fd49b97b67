#include "bench/PlainCopy.h"

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "bench/Stopwatch.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#ifdef __linux__
#include <fcntl.h>
#endif

namespace keelbright::bench {

#ifdef __linux__

namespace {

constexpr size_t bufferSize = size_t{256} * 1024;
constexpr const char* temporaryName = ".plain.tmp";

/// The folder of the target in which the walk is at the moment, made where it is missing.
class TargetFolder
{
public:
    explicit TargetFolder(FileURL root)
        : m_root(std::move(root))
    {}

    [[nodiscard]] int descriptor(QByteArrayView relative)
    {
        if (!m_folder.isOpen() || relative != m_relative) {
            m_relative = relative.toByteArray();
            const QByteArray path = m_root.appendingNative(m_relative).nativePath();
            std::error_code ignored;
            std::filesystem::create_directories(path.toStdString(), ignored);
            m_folder = FileDescriptor(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        }
        return m_folder.get();
    }

private:
    FileURL m_root;
    QByteArray m_relative;
    FileDescriptor m_folder;
};

bool copyData(int source, int target, std::vector<char>& buffer)
{
    for (;;) {
        const ssize_t count = ::read(source, buffer.data(), buffer.size());
        if (count <= 0)
            return count == 0;
        if (::write(target, buffer.data(), static_cast<size_t>(count)) != count)
            return false;
    }
}

bool giveName(int file, int folder, const char* name)
{
    std::array<char, 64> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    if (::linkat(AT_FDCWD, link.data(), folder, name, AT_SYMLINK_FOLLOW) == 0)
        return true;
    return errno == EEXIST &&
           ::linkat(AT_FDCWD, link.data(), folder, temporaryName, AT_SYMLINK_FOLLOW) == 0 &&
           ::renameat(folder, temporaryName, folder, name) == 0;
}

bool copyFile(const DirectoryEnumerator& item, int folder, std::vector<char>& buffer)
{
    const char* name = item.name().data();
    const FileDescriptor source(::openat(item.folderDescriptor(), name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0)
        return false;
    const FileDescriptor target(::openat(folder, ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, status.st_mode));
    if (!target.isOpen() || !copyData(source.get(), target.get(), buffer))
        return false;
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    return ::futimens(target.get(), times.data()) == 0 && giveName(target.get(), folder, name);
}

bool copyTree(DirectoryEnumerator& items, const FileURL& target)
{
    TargetFolder folder(target);
    std::vector<char> buffer(bufferSize);
    while (items.next()) {
        if (items.type() != EntryType::regularFile)
            continue;
        if (!copyFile(items, folder.descriptor(items.relativeFolder()), buffer)) {
            std::perror(items.url().nativePath().constData());
            return false;
        }
    }
    return ::syncfs(folder.descriptor({})) == 0;
}

} // namespace

int measurePlainCopy(const FileURL& tree, const FileURL& folder)
{
    const Stopwatch stopwatch;
    const auto items = DirectoryEnumerator::open(tree, {});
    if (!items || !copyTree(**items, folder))
        return 1;
    stopwatch.print();
    return 0;
}

#else

int measurePlainCopy(const FileURL&, const FileURL&)
{
    std::fputs("the plain calls are those of Linux\n", stderr);
    return 1;
}

#endif

} // namespace keelbright::bench

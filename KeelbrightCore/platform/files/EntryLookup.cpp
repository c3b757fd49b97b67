#include "KeelbrightCore/platform/files/EntryLookup.h"

#include "KeelbrightCore/platform/files/DirectoryReader.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

bool hasEntry(int folder, const QByteArray& name)
{
    struct stat status = {};
    return ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

void forEachEntry(int parent, const char* name, const std::function<void(QByteArrayView)>& visit)
{
    const FileDescriptor folder(
        retrying([&] { return ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    DirectoryReader reader;
    while (folder.isOpen()) {
        const auto entry = reader.read(folder.get()).value_or(std::nullopt);
        if (!entry)
            return;
        visit(entry->name);
    }
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/TrashRecordFile.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

namespace keelbright {

namespace {

constexpr mode_t ownerOnly = 0600;

std::expected<void, int> publish(UnpublishedFile& record, int folder, const QByteArray& name,
                                 const QByteArray& content)
{
    auto done = record.write(content);
    if (done)
        done = record.publish(name);
    if (!done)
        return done;
    done = record.flushWithName();
    if (done)
        done = record.close();
    if (!done)
        ::unlinkat(folder, name.constData(), 0);
    return done;
}

/// Without unnamed files a record has its name from the start: to rename a finished one could replace
/// the record of another program. Its item only comes when it is whole.
std::expected<void, int> writeInPlace(int folder, const QByteArray& name, const QByteArray& content)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor record(retrying([&] { return ::openat(folder, name.constData(), flags, ownerOnly); }));
    if (!record.isOpen())
        return std::unexpected(errno);
    int code = writeAll(record.get(), content.constData(), static_cast<size_t>(content.size()));
    if (code == 0 && retrying([&] { return ::fsync(record.get()); }) != 0)
        code = errno;
    const int codeOfClosing = record.close();
    if (code == 0)
        code = codeOfClosing;
    if (code == 0)
        return {};
    ::unlinkat(folder, name.constData(), 0);
    return std::unexpected(code);
}

} // namespace

std::expected<void, int> writeTrashRecord(int folder, const QByteArray& name, const QByteArray& content)
{
    auto record = UnpublishedFile::createUnnamed(folder, ownerOnly);
    if (record)
        return publish(*record, folder, name, content);
    if (record.error() != ENOTSUP)
        return std::unexpected(record.error());
    return writeInPlace(folder, name, content);
}

bool isTrashRecord(int folder, const QByteArray& name, const QByteArray& content)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor record(retrying([&] { return ::openat(folder, name.constData(), flags); }));
    QByteArray found(content.size() + 1, '\0'); // a longer record differs as well
    qsizetype size = 0;
    while (record.isOpen() && size < found.size()) {
        const auto room = static_cast<size_t>(found.size() - size);
        const ssize_t got = retrying([&] { return ::read(record.get(), found.data() + size, room); });
        if (got <= 0)
            break;
        size += got;
    }
    return record.isOpen() && QByteArrayView(found).first(size) == content;
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TemporaryName.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

std::expected<void, int> outcome(int code)
{
    if (code != 0)
        return std::unexpected(code);
    return {};
}

} // namespace

std::expected<UnpublishedFile, int> UnpublishedFile::create(int folder, mode_t mode)
{
    auto unnamed = createUnnamed(folder, mode);
    if (unnamed || unnamed.error() != ENOTSUP)
        return unnamed;
    return createTemporary(folder, mode);
}

std::expected<UnpublishedFile, int> UnpublishedFile::createUnnamed(int folder, mode_t mode)
{
    auto file = SystemCalls::openUnnamed(folder, mode);
    if (!file)
        return std::unexpected(file.error());
    return UnpublishedFile(folder, std::move(*file), {});
}

std::expected<UnpublishedFile, int> UnpublishedFile::createTemporary(int folder, mode_t mode)
{
    QByteArray name = temporaryName();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(retrying([&] { return ::openat(folder, name.constData(), flags, mode); }));
    if (!file.isOpen())
        return std::unexpected(errno);
    return UnpublishedFile(folder, std::move(file), std::move(name));
}

std::expected<UnpublishedFile, int> UnpublishedFile::createClone(int folder, int source)
{
    QByteArray name = temporaryName();
    if (const auto cloned = SystemCalls::cloneFile(source, folder, name.constData()); !cloned)
        return std::unexpected(cloned.error());
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileDescriptor file(retrying([&] { return ::openat(folder, name.constData(), flags); }));
    if (file.isOpen())
        return UnpublishedFile(folder, std::move(file), std::move(name));
    // Its permissions, which are those of the source, keep its own owner out.
    ::unlinkat(folder, name.constData(), 0);
    return std::unexpected(EINVAL);
}

UnpublishedFile::UnpublishedFile(int folder, FileDescriptor file, QByteArray temporaryName)
    : m_folder(folder)
    , m_file(std::move(file))
    , m_temporaryName(std::move(temporaryName))
{}

UnpublishedFile::~UnpublishedFile()
{
    if (!m_temporaryName.isEmpty())
        ::unlinkat(m_folder, m_temporaryName.constData(), 0);
}

UnpublishedFile::UnpublishedFile(UnpublishedFile&& other) noexcept
    : m_folder(other.m_folder)
    , m_file(std::move(other.m_file))
    , m_temporaryName(std::exchange(other.m_temporaryName, {}))
{}

UnpublishedFile& UnpublishedFile::operator=(UnpublishedFile&& other) noexcept
{
    std::swap(m_folder, other.m_folder);
    std::swap(m_file, other.m_file);
    std::swap(m_temporaryName, other.m_temporaryName);
    return *this;
}

std::expected<void, int> UnpublishedFile::write(const QByteArray& data)
{
    return outcome(writeAll(m_file.get(), data.constData(), static_cast<size_t>(data.size())));
}

std::expected<void, int> UnpublishedFile::flush()
{
    return SystemCalls::flushData(m_file.get());
}

void UnpublishedFile::startWriting()
{
    SystemCalls::startWriting(m_file.get());
}

std::expected<void, int> UnpublishedFile::waitUntilWritten()
{
    return SystemCalls::waitUntilWritten(m_file.get());
}

std::expected<void, int> UnpublishedFile::flushWithName()
{
    return outcome(retrying([&] { return ::fsync(m_file.get()); }) == 0 ? 0 : errno);
}

std::expected<void, int> UnpublishedFile::close()
{
    return outcome(m_file.close());
}

std::expected<void, int> UnpublishedFile::finishWriting()
{
    return isUnnamed() ? std::expected<void, int>() : close();
}

std::expected<void, int> UnpublishedFile::publish(const QByteArray& name)
{
    if (isUnnamed())
        return SystemCalls::nameUnnamed(m_file.get(), m_folder, name.constData());
    auto named = SystemCalls::renameWithoutReplacing(m_folder, m_temporaryName.constData(), m_folder,
                                                     name.constData());
    if (named)
        m_temporaryName.clear();
    return named;
}

std::expected<void, int> UnpublishedFile::publishReplacing(const QByteArray& name)
{
    if (isUnnamed()) {
        QByteArray temporary = temporaryName();
        if (auto named = SystemCalls::nameUnnamed(m_file.get(), m_folder, temporary.constData()); !named)
            return named;
        m_temporaryName = std::move(temporary);
    }
    if (::renameat(m_folder, m_temporaryName.constData(), m_folder, name.constData()) != 0)
        return std::unexpected(errno);
    m_temporaryName.clear();
    return {};
}

} // namespace keelbright

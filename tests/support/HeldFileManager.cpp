#include "tests/support/HeldFileManager.h"

#include "tests/support/BackgroundWork.h"

#include <utility>

namespace keelbright::testing {

HeldFileManager::~HeldFileManager()
{
    finish();
}

void HeldFileManager::finish()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_placeToHold.reset();
    }
    letGo();
    waitForBackgroundWork();
}

void HeldFileManager::holdNextLookAt(const FileURL& place)
{
    const QMutexLocker locker(&m_mutex);
    m_placeToHold = place;
}

bool HeldFileManager::waitUntilHeld()
{
    constexpr int longestWait = 20'000;
    return m_held.tryAcquire(1, longestWait);
}

void HeldFileManager::letGo()
{
    m_go.release();
}

qsizetype HeldFileManager::looksAt(const FileURL& place) const
{
    const QMutexLocker locker(&m_mutex);
    return m_looks.count(place);
}

std::expected<QList<DirectoryEntry>, FileError>
HeldFileManager::contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const
{
    look(url);
    return SandboxFileManager::contentsOfDirectory(url, options);
}

std::expected<FileSystemCapacity, FileError> HeldFileManager::fileSystemCapacity(const FileURL& url) const
{
    look(url);
    return SandboxFileManager::fileSystemCapacity(url);
}

std::expected<void, FileError> HeldFileManager::restoreItem(const TrashedItem& item)
{
    look(item.origin);
    return SandboxFileManager::restoreItem(item);
}

void HeldFileManager::look(const FileURL& place) const
{
    {
        const QMutexLocker locker(&m_mutex);
        m_looks.append(place);
        if (m_placeToHold != place)
            return;
        m_placeToHold.reset();
    }
    m_held.release();
    m_go.acquire();
}

} // namespace keelbright::testing

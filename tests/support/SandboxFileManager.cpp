#include "tests/support/SandboxFileManager.h"

namespace keelbright::testing {

SandboxFileManager::SandboxFileManager(FileURL root)
    : m_root(std::move(root))
{}

FileURL SandboxFileManager::homeDirectory() const
{
    return m_root.appending(m_isMac ? QStringLiteral("Users/mira") : QStringLiteral("home/mira"));
}

FileURL SandboxFileManager::applicationSupportDirectory() const
{
    return homeDirectory().appending(QStringLiteral(".local/share"));
}

QList<FileURL> SandboxFileManager::volumeTops() const
{
    QList<FileURL> tops;
    for (const MountedVolume& volume : m_volumes)
        tops.append(volume.point);
    return tops + m_otherTops;
}

FileURL SandboxFileManager::systemLocation(const QString& absolutePath) const
{
    return m_root.appending(absolutePath);
}

} // namespace keelbright::testing

#include "KeelbrightCore/platform/files/SourceFolders.h"

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FolderOpening.h"

namespace keelbright {

SourceFolders::SourceFolders(const DirectoryEnumerator& items, qsizetype up)
    : m_items(items)
    , m_up(up)
{
    if (up > 0)
        m_folder = openFolder(items.folderDescriptor(), "..");
    for (qsizetype level = 1; level < up && m_folder.isOpen(); ++level)
        m_folder = openFolder(m_folder.get(), "..");
}

int SourceFolders::descriptor() const
{
    return m_up == 0 ? m_items.folderDescriptor() : m_folder.get();
}

void SourceFolders::goDown(const QByteArray& name)
{
    --m_up;
    if (m_up > 0 && m_folder.isOpen())
        m_folder = openFolder(m_folder.get(), name.constData());
}

} // namespace keelbright

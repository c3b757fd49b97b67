#include "tests/support/FatImage.h"

#include "tests/support/Mounting.h"

#include <QDir>
#include <filesystem>
#include <fstream>

namespace keelbright::testing {

FatImage::FatImage(qint64 bytes)
{
    const QString image = m_folder.filePath(QStringLiteral("image"));
    std::ofstream(image.toStdString()).close();
    std::filesystem::resize_file(image.toStdString(), static_cast<std::uintmax_t>(bytes));
    std::filesystem::create_directory(root().nativePath().toStdString());
    m_reasonMissing = failureOf(QStringLiteral("mkfs.vfat"), {image});
    if (m_reasonMissing.empty())
        m_reasonMissing = failureOf(QStringLiteral("fusefat"),
                                    {QStringLiteral("-o"), QStringLiteral("rw+"), image, root().path()});
    if (m_reasonMissing.empty() && !isMountedSoon(root()))
        m_reasonMissing = "fusefat mounts nothing here";
}

FatImage::~FatImage()
{
    if (m_reasonMissing.empty())
        unmountAtOnce(root());
}

FileURL FatImage::root() const
{
    return FileURL::fromPath(QDir(m_folder.path()).canonicalPath()).appending(QStringLiteral("drive"));
}

} // namespace keelbright::testing

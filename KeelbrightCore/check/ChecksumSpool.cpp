#include "KeelbrightCore/check/ChecksumSpool.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

std::shared_ptr<ChecksumSpool> ChecksumSpool::create()
{
    FileManager& files = FileManager::defaultManager();
    const FileURL folder = files.applicationSupportDirectory().appending(QStringLiteral("Keelbright"));
    if (!files.createDirectory(folder))
        return nullptr;
    const std::shared_ptr<ChecksumSpool> spool(
        new ChecksumSpool(folder.appending(QStringLiteral(".checksums.XXXXXX")).path()));
    return spool->m_file.open() ? spool : nullptr;
}

ChecksumSpool::ChecksumSpool(const QString& nameTemplate)
    : m_file(nameTemplate)
{}

void ChecksumSpool::add(const ChecksumLine& line)
{
    const QByteArray text = line.text();
    m_isWhole = m_isWhole && m_file.write(text) == text.size();
    ++m_count;
}

void ChecksumSpool::rewind()
{
    m_isWhole = m_isWhole && m_file.flush() && m_file.seek(0);
}

QByteArray ChecksumSpool::nextPiece()
{
    constexpr qint64 pieceSize = qint64{256} * 1024;
    if (!m_isWhole)
        return {};
    QByteArray piece = m_file.read(pieceSize);
    m_isWhole = m_file.error() == QFileDevice::NoError;
    return m_isWhole ? piece : QByteArray();
}

} // namespace keelbright

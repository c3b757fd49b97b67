#include "tests/support/MadeUpFiles.h"

#include <filesystem>
#include <fstream>
#include <random>

namespace keelbright::testing {

namespace {

std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

std::filesystem::path inExistingFolder(const FileURL& url)
{
    std::filesystem::path path = standardPath(url);
    std::filesystem::create_directories(path.parent_path());
    return path;
}

void write(const FileURL& url, const QByteArray& content, std::ios::openmode mode = std::ios::trunc)
{
    std::ofstream file(inExistingFolder(url), std::ios::binary | mode);
    file.write(content.constData(), content.size());
    file.close();
    if (!file)
        qFatal("can't write %s", url.nativePath().constData());
}

} // namespace

MadeUpFiles::MadeUpFiles(FileURL root, QDateTime now)
    : m_root(std::move(root))
    , m_now(std::move(now))
{}

void MadeUpFiles::folder(const QByteArray& path) const
{
    std::filesystem::create_directories(standardPath(at(path)));
}

void MadeUpFiles::text(const QByteArray& path, const QByteArray& content, int daysOld) const
{
    write(at(path), content);
    setAge(at(path), daysOld);
}

void MadeUpFiles::append(const QByteArray& path, const QByteArray& content) const
{
    write(at(path), content, std::ios::app);
}

void MadeUpFiles::noise(const QByteArray& path, qint64 bytes, int daysOld) const
{
    std::mt19937 generator(static_cast<std::mt19937::result_type>(qHash(path, 1)));
    QByteArray content(bytes, Qt::Uninitialized);
    for (char& byte : content)
        byte = static_cast<char>(generator() & 0xFFU);
    text(path, content, daysOld);
}

void MadeUpFiles::hole(const QByteArray& path, qint64 bytes, int daysOld) const
{
    write(at(path), {});
    std::filesystem::resize_file(standardPath(at(path)), static_cast<std::uintmax_t>(bytes));
    setAge(at(path), daysOld);
}

void MadeUpFiles::link(const QByteArray& path, const QByteArray& target) const
{
    std::filesystem::create_symlink(target.toStdString(), inExistingFolder(at(path)));
}

void MadeUpFiles::program(const QByteArray& path, const QByteArray& script) const
{
    text(path, script);
    std::filesystem::permissions(standardPath(at(path)), std::filesystem::perms(0755));
}

void MadeUpFiles::setAge(const FileURL& url, int daysOld) const
{
    const std::chrono::sys_seconds when{std::chrono::seconds(m_now.addDays(-daysOld).toSecsSinceEpoch())};
    std::filesystem::last_write_time(standardPath(url), std::chrono::file_clock::from_sys(when));
}

} // namespace keelbright::testing

#include "tests/support/FatImage.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace keelbright::testing {

namespace {

/// What the program printed when it failed; empty when it ended well.
std::string failureOf(const QString& program, const QStringList& arguments)
{
    const QString path =
        QStandardPaths::findExecutable(program, {QStringLiteral("/usr/bin"), QStringLiteral("/bin"),
                                                 QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
    if (path.isEmpty())
        return program.toStdString() + " is not installed";
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(path, arguments);
    if (!process.waitForFinished(20'000))
        return program.toStdString() + ": " + process.errorString().toStdString();
    if (process.exitCode() == 0)
        return {};
    return program.toStdString() + ": " + process.readAll().trimmed().toStdString();
}

bool isMountPoint(const FileURL& url)
{
    struct stat inside = {};
    struct stat outside = {};
    return ::stat(url.nativePath().constData(), &inside) == 0 &&
           ::stat(url.deletingLastPathComponent().nativePath().constData(), &outside) == 0 &&
           inside.st_dev != outside.st_dev;
}

} // namespace

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
    // fusefat goes to the background before its file system is there.
    QElapsedTimer waiting;
    waiting.start();
    while (m_reasonMissing.empty() && !isMountPoint(root())) {
        if (waiting.hasExpired(10'000))
            m_reasonMissing = "fusefat mounts nothing here";
        QThread::msleep(10);
    }
}

FatImage::~FatImage()
{
    if (!m_reasonMissing.empty())
        return;
    const std::string failure =
        failureOf(QStringLiteral("fusermount"), {QStringLiteral("-u"), QStringLiteral("-z"), root().path()});
    if (!failure.empty())
        ADD_FAILURE() << failure;
}

FileURL FatImage::root() const
{
    return FileURL::fromPath(QDir(m_folder.path()).canonicalPath()).appending(QStringLiteral("drive"));
}

} // namespace keelbright::testing

#include "tests/support/RealFaults.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace keelbright::testing {

namespace {

constexpr uid_t nobody = 65534;

FileURL canonical(const QTemporaryDir& folder)
{
    return FileURL::fromPath(QDir(folder.path()).canonicalPath());
}

std::string whyNot(const char* what)
{
    return std::string(what) + ": " + std::strerror(errno);
}

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

TmpfsMount::TmpfsMount(Limits limits)
{
    std::string options = "mode=0755,size=" + std::to_string(limits.bytes);
    if (limits.inodes > 0)
        options += ",nr_inodes=" + std::to_string(limits.inodes);
    if (::mount("tmpfs", m_folder.path().toLocal8Bit().constData(), "tmpfs", 0, options.c_str()) != 0)
        m_reasonMissing = whyNot("a file system of its own can't be mounted");
}

TmpfsMount::~TmpfsMount()
{
    // Lazily, so that an open file never leaves the mount behind.
    if (m_reasonMissing.empty() && ::umount2(m_folder.path().toLocal8Bit().constData(), MNT_DETACH) != 0)
        ADD_FAILURE() << whyNot("can't unmount");
}

FileURL TmpfsMount::root() const
{
    return canonical(m_folder);
}

void TmpfsMount::makeReadOnly() const
{
    if (::mount(nullptr, m_folder.path().toLocal8Bit().constData(), nullptr, MS_REMOUNT | MS_RDONLY,
                nullptr) != 0)
        ADD_FAILURE() << whyNot("can't turn the file system read-only");
}

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
    return canonical(m_folder).appending(QStringLiteral("drive"));
}

std::string asOtherUser(const FileURL& passable, const std::function<void()>& work)
{
    if (::geteuid() != 0)
        return "only root may act as another user";
    for (FileURL folder = passable; folder != FileURL(); folder = folder.deletingLastPathComponent()) {
        struct stat status = {};
        if (::stat(folder.nativePath().constData(), &status) == 0 && (status.st_mode & S_IXOTH) == 0)
            ::chmod(folder.nativePath().constData(), (status.st_mode & 07777U) | S_IXOTH);
    }
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        return whyNot("no child process");
    if (child == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
            ::_exit(2);
        work();
        std::fflush(nullptr);
        // No destructor of the parent's objects runs twice.
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        ADD_FAILURE() << "the work as another user failed, status " << status;
    return {};
}

} // namespace keelbright::testing

#include "tests/support/Mounting.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <cstring>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace keelbright::testing {

namespace {

bool isMountPoint(const FileURL& url)
{
    struct stat inside = {};
    struct stat outside = {};
    return ::stat(url.nativePath().constData(), &inside) == 0 &&
           ::stat(url.deletingLastPathComponent().nativePath().constData(), &outside) == 0 &&
           inside.st_dev != outside.st_dev;
}

} // namespace

std::expected<QByteArray, std::string> outputOf(const QString& program, const QStringList& arguments)
{
    const QString path =
        QStandardPaths::findExecutable(program, {QStringLiteral("/usr/bin"), QStringLiteral("/bin"),
                                                 QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")});
    if (path.isEmpty())
        return std::unexpected(program.toStdString() + " is not installed");
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(path, arguments);
    if (!process.waitForFinished(60'000))
        return std::unexpected(program.toStdString() + ": " + process.errorString().toStdString());
    const QByteArray output = process.readAll().trimmed();
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return output;
    return std::unexpected(program.toStdString() + ": " + output.toStdString());
}

std::string failureOf(const QString& program, const QStringList& arguments)
{
    const auto output = outputOf(program, arguments);
    return output ? std::string() : output.error();
}

bool isMountedSoon(const FileURL& mountPoint)
{
    QElapsedTimer waiting;
    waiting.start();
    while (!isMountPoint(mountPoint)) {
        if (waiting.hasExpired(60'000))
            return false;
        QThread::msleep(10);
    }
    return true;
}

void unmountAtOnce(const FileURL& mountPoint)
{
    if (::umount2(mountPoint.nativePath().constData(), MNT_DETACH) == 0)
        return;
    // Whoever is not root asks the program that may do this for one's own mounts.
    const std::string failure = failureOf(QStringLiteral("fusermount"),
                                          {QStringLiteral("-u"), QStringLiteral("-z"), mountPoint.path()});
    if (!failure.empty())
        ADD_FAILURE() << failure;
}

} // namespace keelbright::testing

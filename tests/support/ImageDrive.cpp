#include "tests/support/ImageDrive.h"

#include "tests/support/Mounting.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace keelbright::testing {

namespace {

struct Programs
{
    QStringList make;  ///< the device follows
    QStringList mount; ///< device and folder follow
};

Programs programsOf(ImageDrive::Kind kind)
{
    switch (kind) {
    case ImageDrive::Kind::exFat:
        return {{QStringLiteral("mkfs.exfat")}, {QStringLiteral("mount.exfat-fuse")}};
    case ImageDrive::Kind::ntfs:
        return {{QStringLiteral("mkntfs"), QStringLiteral("--quick"), QStringLiteral("--quiet")},
                {QStringLiteral("lowntfs-3g"), QStringLiteral("-o"),
                 QStringLiteral("ignore_case,windows_names")}};
    case ImageDrive::Kind::ext4:
        return {{QStringLiteral("mkfs.ext4"), QStringLiteral("-q")},
                {QStringLiteral("mount"), QStringLiteral("-o"), QStringLiteral("errors=remount-ro")}};
    case ImageDrive::Kind::btrfs:
        return {{QStringLiteral("mkfs.btrfs"), QStringLiteral("-q")}, {QStringLiteral("mount")}};
    }
    return {};
}

std::string start(QStringList command, const QStringList& arguments)
{
    const QString program = command.takeFirst();
    return failureOf(program, command + arguments);
}

} // namespace

ImageDrive::ImageDrive(Kind kind, qint64 bytes, const std::optional<FileURL>& imageFolder)
    : m_kind(kind)
{
    const QString image = imageFolder ? imageFolder->appendingNative("image").path()
                                      : m_folder.filePath(QStringLiteral("image"));
    std::ofstream(image.toStdString()).close();
    std::filesystem::resize_file(image.toStdString(), static_cast<std::uintmax_t>(bytes));
    std::filesystem::create_directory(root().nativePath().toStdString());
    const auto device =
        outputOf(QStringLiteral("losetup"), {QStringLiteral("--find"), QStringLiteral("--show"), image});
    if (!device) {
        m_reasonMissing = device.error();
        return;
    }
    m_device = QString::fromUtf8(*device);
    m_reasonMissing = start(programsOf(kind).make, {m_device});
    if (m_reasonMissing.empty())
        m_reasonMissing = mount();
}

ImageDrive::~ImageDrive()
{
    if (m_reasonMissing.empty())
        unmountAtOnce(root());
    // Where the unmounted file system is still being left, the device goes as soon as it has been.
    if (!m_device.isEmpty()) {
        EXPECT_EQ(failureOf(QStringLiteral("losetup"), {QStringLiteral("--detach"), m_device}), "");
    }
}

std::string ImageDrive::mount() const
{
    if (std::string failure = start(programsOf(m_kind).mount, {m_device, root().path()}); !failure.empty())
        return failure;
    return isMountedSoon(root()) ? std::string() : "the drive does not appear";
}

FileURL ImageDrive::root() const
{
    return FileURL::fromPath(QDir(m_folder.path()).canonicalPath()).appending(QStringLiteral("drive"));
}

void ImageDrive::failInside() const
{
    std::ofstream trigger(folderOfSystem() + "/trigger_fs_error");
    trigger << "made by a test" << std::flush;
    EXPECT_TRUE(trigger.good());
}

void ImageDrive::pull() const
{
    constexpr unsigned long shutDownRequest = 0x8004587d; // of ext4 and xfs alike; no header names it
    std::uint32_t withoutTheLog = 2;
    const int folder = ::open(root().nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_EQ(::ioctl(folder, shutDownRequest, &withoutTheLog), 0);
    ::close(folder);
}

std::string ImageDrive::folderOfSystem() const
{
    return "/sys/fs/ext4/" + m_device.section(u'/', -1).toStdString();
}

bool ImageDrive::isLeftSoon() const
{
    constexpr qint64 patience = 60'000;
    QElapsedTimer waited;
    waited.start();
    while (std::filesystem::exists(folderOfSystem())) {
        if (waited.elapsed() > patience)
            return false;
        QThread::msleep(1);
    }
    return true;
}

void ImageDrive::putBack() const
{
    unmountAtOnce(root());
    // While a process still holds it, a mount would show the same file system once more, shut down as it is.
    ASSERT_TRUE(isLeftSoon());
    EXPECT_EQ(mount(), "");
}

} // namespace keelbright::testing

#include "tests/support/ImageDrive.h"

#include "tests/support/Mounting.h"

#include <QDir>
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
    const QString name = m_device.section(u'/', -1);
    std::ofstream trigger("/sys/fs/ext4/" + name.toStdString() + "/trigger_fs_error");
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

void ImageDrive::putBack() const
{
    unmountAtOnce(root());
    EXPECT_EQ(mount(), "");
}

} // namespace keelbright::testing

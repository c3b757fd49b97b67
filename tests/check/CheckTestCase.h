#pragma once

#include "KeelbrightCore/check/ChecksumSpool.h"
#include "KeelbrightCore/check/CopyCheck.h"
#include "tests/support/EngineRun.h"

#include <QHash>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright::testing {

/// A machine with a folder "Documents" that a real backup has copied to its drive, and checks of the copies.
class CheckTestCase : public ::testing::Test
{
protected:
    CheckTestCase() { documents = run.mac.makeFolder("Users/mira/Documents"); }

    FileURL write(const QByteArray& name, const QByteArray& content) const
    {
        return run.mac.writeFile("Users/mira/Documents/" + name, content);
    }

    void backUp() { run.run({documents}); }

    [[nodiscard]] FileURL original(const QByteArray& name) const { return documents.appendingNative(name); }

    [[nodiscard]] FileURL copy(const QByteArray& name) const { return run.mirrored("Documents/" + name); }

    [[nodiscard]] CheckJob job() const
    {
        return {.sources = {{QUuid::createUuid(), documents, true}},
                .destination = run.drive,
                .checksumList = {}};
    }

    [[nodiscard]] CheckReport check() { return CopyCheck::run(job(), progress); }

    /// The verdicts of a report with a number above 0, by name.
    [[nodiscard]] static QHash<QByteArray, qint64> counts(const CheckReport& report)
    {
        static const QList<std::pair<CopyVerdict, QByteArray>> names{
            {CopyVerdict::same, "same"},
            {CopyVerdict::changedSince, "changed"},
            {CopyVerdict::differs, "differs"},
            {CopyVerdict::unreadable, "unreadable"},
            {CopyVerdict::onlyOnDrive, "only on drive"},
            {CopyVerdict::notBackedUp, "not backed up"},
            {CopyVerdict::originalUnreadable, "original unreadable"}};
        QHash<QByteArray, qint64> found;
        for (const auto& [verdict, name] : names) {
            if (report.count(verdict) > 0)
                found.insert(name, report.count(verdict));
        }
        return found;
    }

    using Counts = QHash<QByteArray, qint64>;

    /// The items of all findings.
    [[nodiscard]] static QList<FileURL> items(const CheckReport& report)
    {
        QList<FileURL> items;
        for (const CheckFinding& finding : report.findings)
            items.append(finding.item);
        return items;
    }

    [[nodiscard]] static struct stat statusOf(const FileURL& file)
    {
        struct stat status = {};
        EXPECT_EQ(::lstat(file.nativePath().constData(), &status), 0) << file.path().toStdString();
        return status;
    }

    /// Writes over a part of a file and gives it back the times that it had.
    static void overwrite(const FileURL& file, off_t offset, const QByteArray& bytes)
    {
        const struct stat before = statusOf(file);
        const int descriptor = ::open(file.nativePath().constData(), O_WRONLY | O_CLOEXEC);
        ASSERT_GE(descriptor, 0);
        EXPECT_EQ(::pwrite(descriptor, bytes.constData(), static_cast<size_t>(bytes.size()), offset),
                  bytes.size());
        const timespec times[] = {before.st_atim, before.st_mtim};
        EXPECT_EQ(::futimens(descriptor, times), 0);
        ::close(descriptor);
    }

    static void setTimes(const FileURL& file, time_t access, time_t modification)
    {
        const timespec times[] = {{access, 0}, {modification, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, file.nativePath().constData(), times, AT_SYMLINK_NOFOLLOW), 0);
    }

    EngineRun run;
    FileURL documents;
    CheckProgress progress;
};

/// Any bytes, but always the same for a size.
[[nodiscard]] inline QByteArray content(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    quint32 state = 12'345;
    for (char& byte : bytes) {
        state = state * 1'664'525 + 1'013'904'223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/platform/files/Trash.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright::testing {

inline const QByteArray user = QByteArray::number(::getuid());

[[nodiscard]] inline bool exists(const FileURL& url)
{
    struct stat status = {};
    return ::lstat(url.nativePath().constData(), &status) == 0;
}

[[nodiscard]] inline mode_t permissions(const FileURL& url)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(url.nativePath().constData(), &status), 0) << url.nativePath().toStdString();
    return status.st_mode & 07777U;
}

/// A machine with a home Trash that is not there yet.
class TrashTestCase : public ::testing::Test
{
protected:
    std::expected<FileURL, FileError> moveToTrash(const FileURL& item) const
    {
        return placeOf(Trash::moveToTrash(item, m_trash, {m_mac.home()}));
    }

    static std::expected<FileURL, FileError> placeOf(const std::expected<TrashedItem, FileError>& outcome)
    {
        if (!outcome)
            return std::unexpected(outcome.error());
        return outcome->place;
    }

    FileURL trashed(const FileURL& item) const
    {
        const auto place = moveToTrash(item);
        if (!place) {
            ADD_FAILURE() << place.error().localizedDescription().toStdString();
            return {};
        }
        return *place;
    }

    static FileError refused(const std::expected<FileURL, FileError>& outcome)
    {
        if (outcome)
            ADD_FAILURE() << "it went to " << outcome->nativePath().toStdString();
        return outcome ? FileError() : outcome.error();
    }

    static FileError systemError(const FileURL& item, int code)
    {
        return FileError::fromCode(FileError::Operation::trashed, item.lastPathComponent(), code);
    }

    static FileURL recordOf(const FileURL& place)
    {
        return place.deletingLastPathComponent()
            .deletingLastPathComponent()
            .appendingNative("info")
            .appendingNative(place.nativeLastPathComponent() + ".trashinfo");
    }

    /// The record of an item in the Trash, its date checked and left out.
    static QByteArray recordWithoutDate(const FileURL& place)
    {
        QByteArray record = TestMac::read(recordOf(place));
        const QByteArray key = "\nDeletionDate=";
        const qsizetype start = record.indexOf(key) + key.size();
        const QDateTime date = QDateTime::fromString(QString::fromLatin1(record.mid(start, 19)), Qt::ISODate);
        EXPECT_LT(qAbs(date.secsTo(QDateTime::currentDateTime())), 60) << record.toStdString();
        return record.remove(start, 19);
    }

    std::set<QByteArray> names(const char* folder) const
    {
        std::set<QByteArray> found;
        const auto entries = m_mac.fileManager().contentsOfDirectory(m_trash.appendingNative(folder), {});
        for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>()))
            found.insert(entry.url.nativeLastPathComponent());
        return found;
    }

    /// Hands the machine's home and what else is given over to the plain user that
    /// `UnprivilegedUser` becomes.
    void giveAway(std::initializer_list<FileURL> urls) const
    {
        ASSERT_EQ(::chmod(m_mac.root().nativePath().constData(), 0755), 0);
        if (::getuid() != 0)
            return;
        constexpr uid_t nobody = UnprivilegedUser::nobody;
        ASSERT_EQ(::lchown(m_mac.home().nativePath().constData(), nobody, nobody), 0);
        for (const FileURL& url : urls)
            ASSERT_EQ(::lchown(url.nativePath().constData(), nobody, nobody), 0);
    }

    mutable TestMac m_mac;
    FileURL m_trash = m_mac.home().appendingNative(".local/share/Trash");
};

} // namespace keelbright::testing

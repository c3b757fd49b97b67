#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>
#include <expected>
#include <sys/types.h>

namespace keelbright {

/// A file that gets its name when it is whole. Until then it has none where the file system supports
/// unnamed files, else a temporary one (".<UUID>.tmp"). Internal to the platform folder.
///
/// A value that owns its file: destroyed unpublished, it leaves nothing behind. It may be created,
/// filled and published on different threads, by one at a time. The open folder that it is created
/// in stays the caller's, and has to stay open as long as the file lives. A failure is the `errno`
/// value.
class UnpublishedFile
{
public:
    /// Without a name where the file system can do that, else with a temporary one. Of `mode` the
    /// file gets what the folder and the process allow.
    [[nodiscard]] static std::expected<UnpublishedFile, int> create(int folder, mode_t mode);
    /// ENOTSUP where the file system does not support unnamed files.
    [[nodiscard]] static std::expected<UnpublishedFile, int> createUnnamed(int folder, mode_t mode);
    [[nodiscard]] static std::expected<UnpublishedFile, int> createTemporary(int folder, mode_t mode);
    /// One that shares the data of an open file and has its attributes, under a temporary name; it can't be
    /// written to. ENOTSUP or EXDEV where the file systems can't do that, EINVAL where that one file can't be
    /// shared.
    [[nodiscard]] static std::expected<UnpublishedFile, int> createClone(int folder, int source);

    ~UnpublishedFile();
    UnpublishedFile(UnpublishedFile&& other) noexcept;
    UnpublishedFile& operator=(UnpublishedFile&& other) noexcept;
    UnpublishedFile(const UnpublishedFile&) = delete;
    UnpublishedFile& operator=(const UnpublishedFile&) = delete;

    /// For writing, or to set attributes of a clone; -1 once it is closed.
    [[nodiscard]] int descriptor() const { return m_file.get(); }

    [[nodiscard]] bool isUnnamed() const { return m_temporaryName.isEmpty(); }

    /// Appends all of the data.
    [[nodiscard]] std::expected<void, int> write(const QByteArray& data);
    /// Brings the data onto the drive.
    [[nodiscard]] std::expected<void, int> flush();
    /// Begins to write the data to the drive, and does not wait.
    void startWriting();
    /// Waits until the data has been written, before a name that is given afterwards.
    [[nodiscard]] std::expected<void, int> waitUntilWritten();
    /// Brings the data of a published file and its name onto the drive.
    [[nodiscard]] std::expected<void, int> flushWithName();
    /// Closes the file. Some drives report only then what they could not write. A file without a name
    /// is lost by it.
    [[nodiscard]] std::expected<void, int> close();
    /// To be called before `publish`: closes a file that has a temporary name, so that the drive
    /// reports what it could not write; leaves a file without a name open.
    [[nodiscard]] std::expected<void, int> finishWriting();

    /// Gives the file its name. EEXIST where the name is taken; the file may be published under
    /// another one then.
    [[nodiscard]] std::expected<void, int> publish(const QByteArray& name);
    /// Gives the file its name and replaces an older file of that name in one step. Where that
    /// fails, the older file stays; this one has a temporary name then, unless it could not even be
    /// given that.
    [[nodiscard]] std::expected<void, int> publishReplacing(const QByteArray& name);

    /// Leaves the file where it is, under its temporary name.
    void keepTemporary() { m_temporaryName.clear(); }

    /// Lets an unnamed file be published in another folder of the same file system.
    void moveTo(int folder) { m_folder = folder; }

private:
    UnpublishedFile(int folder, FileDescriptor file, QByteArray temporaryName);

    int m_folder;
    FileDescriptor m_file;
    QByteArray m_temporaryName; ///< empty where the file has none, or has been published
};

} // namespace keelbright

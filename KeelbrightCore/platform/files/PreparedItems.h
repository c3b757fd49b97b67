#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"

#include <QByteArray>
#include <memory>

namespace keelbright {

/// A file's complete copy in an open folder: without any name where the file system has such
/// files, else under a temporary one. Internal to the platform folder.
class PreparedFile : public PreparedCopy
{
public:
    /// `temporaryName` is empty for a file without a name.
    PreparedFile(std::shared_ptr<const TargetFolder> folder, FileDescriptor file, QByteArray temporaryName,
                 QByteArray name);
    ~PreparedFile() override;
    PreparedFile(const PreparedFile&) = delete;
    PreparedFile& operator=(const PreparedFile&) = delete;
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_sourceSize; }

    void setSourceSize(qint64 size) { m_sourceSize = size; }

    /// Closes the file where it has a name by which it is found again: before it gets its own one,
    /// the drive has to say whether all of it has arrived. 0, or the `errno` value.
    [[nodiscard]] int finishWriting();

private:
    [[nodiscard]] std::expected<void, FileError> giveName();
    [[nodiscard]] std::expected<void, int> takeFreeName();
    [[nodiscard]] std::expected<void, FileError> replaceOld();
    [[nodiscard]] int folder() const;

    std::shared_ptr<const TargetFolder> m_folder;
    FileDescriptor m_newFolder; ///< instead of the one that was removed
    FileDescriptor m_file;
    QByteArray m_temporaryName;
    QByteArray m_name;
    qint64 m_sourceSize = 0;
};

/// A symbolic link about to be made anew. Internal to the platform folder.
class PreparedLink : public PreparedCopy
{
public:
    PreparedLink(std::shared_ptr<const TargetFolder> folder, QByteArray linkTarget, QByteArray name);
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_linkTarget.size(); }

private:
    std::shared_ptr<const TargetFolder> m_folder;
    QByteArray m_linkTarget;
    QByteArray m_name;
};

} // namespace keelbright

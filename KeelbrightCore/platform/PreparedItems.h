#pragma once

#include "KeelbrightCore/platform/CopyDestination.h"
#include "KeelbrightCore/platform/FileDescriptor.h"

#include <QByteArray>
#include <functional>

namespace keelbright {

/// Opens the folder of a copy anew, because it was removed meanwhile; stays owned by the giver.
using FolderReopener = std::function<std::expected<int, FileError>()>;

/// A file's complete copy in an open folder: without any name where the file system has such
/// files, else under a temporary one. Internal to the platform folder.
class PreparedFile : public PreparedCopy
{
public:
    /// `temporaryName` is empty for a file without a name.
    PreparedFile(int folder, FolderReopener reopen, FileDescriptor file, QByteArray temporaryName,
                 QByteArray name);
    ~PreparedFile() override;
    PreparedFile(const PreparedFile&) = delete;
    PreparedFile& operator=(const PreparedFile&) = delete;
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_sourceSize; }

    void setSourceSize(qint64 size) { m_sourceSize = size; }

private:
    [[nodiscard]] std::expected<void, int> publishAsNew();
    [[nodiscard]] std::expected<void, FileError> replaceOld();

    int m_folder;
    FolderReopener m_reopen;
    FileDescriptor m_file;
    QByteArray m_temporaryName;
    QByteArray m_name;
    qint64 m_sourceSize = 0;
};

/// A symbolic link about to be made anew. Internal to the platform folder.
class PreparedLink : public PreparedCopy
{
public:
    PreparedLink(int folder, QByteArray linkTarget, QByteArray name);
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_linkTarget.size(); }

private:
    int m_folder;
    QByteArray m_linkTarget;
    QByteArray m_name;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <QByteArray>
#include <memory>

namespace keelbright {

/// The complete copy of a file, waiting for its name in an open folder. Internal to the platform
/// folder.
class PreparedFile : public PreparedCopy
{
public:
    /// `file` was created in `folder`; `sourceSize` in bytes.
    PreparedFile(std::shared_ptr<const TargetFolder> folder, UnpublishedFile file, QByteArray name,
                 qint64 sourceSize);
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_sourceSize; }

private:
    [[nodiscard]] std::expected<void, FileError> giveName();

    std::shared_ptr<const TargetFolder> m_folder;
    FileDescriptor m_newFolder; ///< instead of one that was removed
    UnpublishedFile m_file;
    QByteArray m_name;
    qint64 m_sourceSize;
};

/// A symbolic link that is about to be created. Internal to the platform folder.
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

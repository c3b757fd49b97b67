#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

namespace keelbright {

/// The complete copy of a file, waiting for its name in an open folder. Internal to the platform
/// folder.
class PreparedFile : public PreparedCopy
{
public:
    /// `file` was created in the plan's target folder or, where that is open, in `newFolder`;
    /// `sourceSize` in bytes; `isReplacing` says that a file of the name is there, which `replaced` holds
    /// where it could be opened. Its room is freed when this copy is destroyed: a name that took the room
    /// away, too, would keep the main thread waiting for several times as long.
    PreparedFile(const PlannedCopy& plan, FileDescriptor newFolder, UnpublishedFile file,
                 FileDescriptor replaced, qint64 sourceSize, bool isReplacing);
    [[nodiscard]] std::expected<void, FileError> flushBeforeReplacing() override;
    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_sourceSize; }

private:
    [[nodiscard]] std::expected<void, FileError> giveName();
    [[nodiscard]] std::expected<void, FileError> waitUntilWritten();

    std::shared_ptr<const TargetFolder> m_folder;
    FileDescriptor m_newFolder; ///< instead of one that was removed
    UnpublishedFile m_file;
    FileDescriptor m_replaced;
    QByteArray m_name;
    qint64 m_sourceSize;
    QByteArray m_twin;
    bool m_isReplacing;
    bool m_isWritten; ///< as far as a replacement needs it
};

/// A symbolic link that is about to be created. Internal to the platform folder.
class PreparedLink : public PreparedCopy
{
public:
    PreparedLink(const PlannedCopy& plan, QByteArray linkTarget);

    /// A link has no data of its own.
    [[nodiscard]] std::expected<void, FileError> flushBeforeReplacing() override { return {}; }

    [[nodiscard]] std::expected<void, FileError> publish() override;

    [[nodiscard]] qint64 sourceSize() const override { return m_linkTarget.size(); }

private:
    std::shared_ptr<const TargetFolder> m_folder;
    QByteArray m_linkTarget;
    QByteArray m_name;
    QByteArray m_twin;
};

} // namespace keelbright

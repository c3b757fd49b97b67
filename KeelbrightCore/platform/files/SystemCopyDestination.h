#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FileContents.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/LetterCase.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"

#include <chrono>
#include <optional>
#include <vector>

namespace keelbright {

/// The copy destination on the real file system. Internal to the platform folder.
class SystemCopyDestination : public CopyDestination
{
public:
    /// `base` must exist and may be reached through links; `relativeFolder` below it is created
    /// as needed, without following a link.
    [[nodiscard]] static std::expected<std::unique_ptr<CopyDestination>, FileError>
    open(const FileURL& base, QByteArrayView relativeFolder);

    [[nodiscard]] std::expected<void, FileError> enterFolder(QByteArrayView relativeFolder) override;
    [[nodiscard]] std::expected<std::unique_ptr<PreparedCopy>, FileError>
    prepare(const DirectoryEnumerator& item, const std::atomic<bool>& stop) override;

    [[nodiscard]] qsizetype mostPrepared() const override;

    [[nodiscard]] std::expected<void, FileError> writeAtomically(const QByteArray& name,
                                                                 const QByteArray& data) override;
    [[nodiscard]] bool isInPlace() override;
    [[nodiscard]] std::expected<void, FileError> flush() override;

private:
    using Prepared = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    [[nodiscard]] static std::expected<std::unique_ptr<SystemCopyDestination>, FileError>
    anchoredAt(const FileURL& anchor, FileDescriptor folder, const struct stat& identity);
    SystemCopyDestination(FileURL anchor, FileDescriptor folder, FileDescriptor anchorFolder,
                          const struct stat& identity);

    /// Asks the file system now and then only: a drive leaves its place rarely, files come by the
    /// thousand.
    [[nodiscard]] bool wasInPlaceJustNow();
    [[nodiscard]] std::expected<void, FileError> checkPlace();
    [[nodiscard]] std::expected<void, FileError> enterOrCreate(const QByteArray& name);
    [[nodiscard]] std::expected<void, FileError> reenterFolder();
    /// The entered folder, for copies that are published after another one has been entered.
    [[nodiscard]] std::expected<std::shared_ptr<const TargetFolder>, int> targetFolder();
    /// Goes its own way from the anchor: the entered folder may be another one by now.
    [[nodiscard]] std::expected<FileDescriptor, FileError> makeAnew(const QByteArray& relativeFolder);
    [[nodiscard]] Prepared prepareFile(const DirectoryEnumerator& item, const std::atomic<bool>& stop);
    [[nodiscard]] Prepared prepareLink(const DirectoryEnumerator& item);

    /// A file in the making.
    struct NewFile
    {
        std::shared_ptr<const TargetFolder> folder;
        FileDescriptor file;
        QByteArray temporaryName; ///< empty where it has no name
        bool hasMode = false;     ///< that of its source
    };

    [[nodiscard]] std::expected<NewFile, FileError> createFile(QByteArrayView name,
                                                               const struct stat& source);
    [[nodiscard]] std::expected<NewFile, int> tryToCreateFile(const struct stat& source);
    /// 0, or the `errno` value of what failed.
    [[nodiscard]] int copyAttributes(int source, int target, const struct stat& status, bool hasMode) const;
    /// Whether a copy has the owner of its source without our doing.
    [[nodiscard]] bool isOwn(const struct stat& source) const;

    FileURL m_anchor;
    dev_t m_device;
    ino_t m_inode;
    uid_t m_user; ///< whom new files belong to
    gid_t m_group;
    mode_t m_withheldPermissions;
    FileDescriptor m_anchorFolder; ///< opened before the first write, to hear of every error since
    FolderChain m_chain;
    FileContents m_contents;
    LetterCase m_letterCase;
    std::optional<std::chrono::steady_clock::time_point> m_lastSeenInPlace;
    bool m_hasUnnamedFiles = true;
    /// Of each folder on the way to the entered one, whether this destination has made it; what is
    /// missing was not looked at.
    std::vector<bool> m_wasMade;
    std::shared_ptr<const TargetFolder> m_targetFolder; ///< null until asked for
    qsizetype m_mostPrepared;
};

} // namespace keelbright

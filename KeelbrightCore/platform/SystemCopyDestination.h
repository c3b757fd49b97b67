#pragma once

#include "KeelbrightCore/platform/CopyDestination.h"
#include "KeelbrightCore/platform/FileContents.h"
#include "KeelbrightCore/platform/FolderChain.h"
#include "KeelbrightCore/platform/LetterCase.h"

#include <chrono>
#include <optional>

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
    [[nodiscard]] bool isInPlace() override;
    [[nodiscard]] std::expected<void, FileError> flush() override;

private:
    using Prepared = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    SystemCopyDestination(FileURL anchor, FileDescriptor folder, const struct stat& identity);

    /// Asks the file system now and then only: a drive leaves its place rarely, files come by the
    /// thousand.
    [[nodiscard]] bool wasInPlaceJustNow();
    [[nodiscard]] std::expected<void, FileError> enterOrCreate(const QByteArray& name);
    [[nodiscard]] std::expected<int, FileError> reenterFolder();
    [[nodiscard]] Prepared prepareFile(const DirectoryEnumerator& item, const std::atomic<bool>& stop);
    [[nodiscard]] Prepared prepareLink(const DirectoryEnumerator& item);
    [[nodiscard]] std::expected<FileDescriptor, FileError> createFile(QByteArray& temporaryName,
                                                                      const QString& name);
    /// 0, or the `errno` value of what failed.
    [[nodiscard]] int copyAttributes(int source, int target, const struct stat& status) const;
    [[nodiscard]] FileError goneError() const;

    FileURL m_anchor;
    dev_t m_device;
    ino_t m_inode;
    uid_t m_user; ///< whom new files belong to
    gid_t m_group;
    FileDescriptor m_flushDescriptor; ///< opened before the first write, to hear of every error since
    FolderChain m_chain;
    FileContents m_contents;
    LetterCase m_letterCase;
    std::optional<std::chrono::steady_clock::time_point> m_lastSeenInPlace;
    bool m_hasUnnamedFiles = true;
};

} // namespace keelbright

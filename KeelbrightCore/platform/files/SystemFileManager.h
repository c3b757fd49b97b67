#pragma once

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

/// The real file system. `homeDirectory` is `$HOME`, else what the user database says; on Linux application
/// support is `$XDG_DATA_HOME`, else `.local/share` below the home. A test overrides these places to lay a
/// whole machine into a temporary folder.
class SystemFileManager : public FileManager
{
public:
    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override;
    [[nodiscard]] bool isReadable(const FileURL& url) const override;
    [[nodiscard]] bool isWritable(const FileURL& url) const override;
    [[nodiscard]] bool isExecutable(const FileURL& url) const override;
    [[nodiscard]] std::optional<QDateTime> modificationDate(const FileURL& url) const override;
    [[nodiscard]] std::optional<QByteArray> beginning(const FileURL& url, qsizetype bytes) const override;
    [[nodiscard]] std::optional<qint64> fileSize(const FileURL& url) const override;
    [[nodiscard]] FileURL resolvingSymlinks(const FileURL& url) const override;
    [[nodiscard]] std::optional<PlaceOnVolume> placeOnVolume(const FileURL& url) const override;
    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override;
    [[nodiscard]] std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override;
    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override;
    [[nodiscard]] std::expected<void, FileError> createDirectory(const FileURL& url) override;
    [[nodiscard]] std::expected<std::unique_ptr<CopyDestination>, FileError>
    openCopyDestination(const FileURL& base, QByteArrayView relativeFolder) override;
    [[nodiscard]] std::expected<void, FileError> moveItem(const FileURL& source,
                                                          const FileURL& target) override;
    [[nodiscard]] std::expected<void, FileError> removeEmptyFolder(const FileURL& folder) override;
    [[nodiscard]] std::expected<TrashedItem, FileError> trashItem(const FileURL& url) override;
    [[nodiscard]] std::expected<void, FileError> restoreItem(const TrashedItem& item) override;
    [[nodiscard]] std::expected<void, FileError> linkItem(const FileURL& item,
                                                          const FileURL& secondName) override;
    [[nodiscard]] std::expected<void, FileError> removeOwnFile(const FileURL& file) override;
    using FileManager::contents;
    [[nodiscard]] std::expected<QByteArray, FileError> contents(const FileURL& url,
                                                                qint64 maximumSize) const override;
    [[nodiscard]] std::expected<void, FileError> writeAtomically(const FileURL& url,
                                                                 const QByteArray& data) override;
    [[nodiscard]] std::expected<void, FileError> writePiecesAtomically(const FileURL& url,
                                                                       const NextPiece& nextPiece) override;
    [[nodiscard]] QList<MountedVolume> mountedVolumes() const override;
    [[nodiscard]] QList<FileURL> volumeTops() const override;
    [[nodiscard]] bool isMac() const override;
    [[nodiscard]] FileURL homeDirectory() const override;
    [[nodiscard]] FileURL applicationSupportDirectory() const override;
    [[nodiscard]] FileURL systemLocation(const QString& absolutePath) const override;
};

} // namespace keelbright

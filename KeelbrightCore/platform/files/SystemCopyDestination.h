#pragma once

#include "KeelbrightCore/platform/files/CopyAnchor.h"
#include "KeelbrightCore/platform/files/CopyAttributes.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FileContents.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/LetterCase.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

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
    prepare(const DirectoryEnumerator& item, const Cancellation& cancellation) override;

    [[nodiscard]] qsizetype maximumPrepared() const override;

    [[nodiscard]] std::expected<void, FileError> writeAtomically(const QByteArray& name,
                                                                 const QByteArray& data) override;
    [[nodiscard]] bool isInPlace() override;
    [[nodiscard]] std::expected<void, FileError> flush() override;

private:
    using Prepared = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    /// A file that is being copied.
    struct NewFile
    {
        std::shared_ptr<const TargetFolder> folder;
        UnpublishedFile file;
        bool hasMode = false; ///< that of its source
    };

    /// `chainRoot` is the anchor's folder, open a second time.
    SystemCopyDestination(CopyAnchor anchor, FileDescriptor chainRoot);

    [[nodiscard]] std::expected<void, FileError> enterOrCreate(const QByteArray& name);
    /// Goes into the entered folder once more, which somebody has removed.
    [[nodiscard]] std::expected<void, FileError> recreateFolder();
    /// The entered folder, for copies that are published after another one has been entered.
    [[nodiscard]] std::expected<std::shared_ptr<const TargetFolder>, int> targetFolder();

    [[nodiscard]] Prepared prepareFile(const DirectoryEnumerator& item, const Cancellation& cancellation);
    [[nodiscard]] Prepared prepareLink(const DirectoryEnumerator& item);
    [[nodiscard]] std::expected<NewFile, FileError> createFile(QByteArrayView name,
                                                               const struct stat& source);
    [[nodiscard]] std::expected<NewFile, int> tryToCreateFile(const struct stat& source);

    CopyAnchor m_anchor;
    FolderChain<NameIs> m_chain; ///< with what the names in each folder are likely to be
    FileContents m_contents;
    CopyAttributes m_attributes;
    LetterCase m_letterCase;
    bool m_hasUnnamedFiles = true;
    std::shared_ptr<const TargetFolder> m_targetFolder; ///< null until asked for
    qsizetype m_maximumPrepared;
};

} // namespace keelbright

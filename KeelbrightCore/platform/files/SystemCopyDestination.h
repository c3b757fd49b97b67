#pragma once

#include "KeelbrightCore/platform/files/CopyAnchor.h"
#include "KeelbrightCore/platform/files/CopyAttributes.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/LetterCase.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"

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
    [[nodiscard]] std::expected<PlannedCopy, FileError> plan(const DirectoryEnumerator& item) override;
    [[nodiscard]] std::unique_ptr<CopyWorker> makeWorker() override;
    [[nodiscard]] qsizetype maximumPrepared() override;

    [[nodiscard]] std::expected<void, FileError> writeAtomically(const QByteArray& name,
                                                                 const QByteArray& data) override;
    [[nodiscard]] bool isInPlace() override;
    [[nodiscard]] std::expected<void, FileError> flush() override;

private:
    /// `chainRoot` is the anchor's folder, open a second time.
    SystemCopyDestination(std::shared_ptr<CopyAnchor> anchor, FileDescriptor chainRoot);

    [[nodiscard]] std::expected<void, FileError> goTo(QByteArrayView relativeFolder);
    [[nodiscard]] std::expected<void, FileError> enterOrCreate(const QByteArray& name);
    /// The entered folder and the one that the planned items lie in, opened for copies that are published
    /// after others have been entered.
    [[nodiscard]] std::expected<void, int> openFolders(const DirectoryEnumerator& item);
    [[nodiscard]] bool hasUnnamedFiles();

    std::shared_ptr<CopyAnchor> m_anchor;
    FolderChain<NameIs> m_chain; ///< with what the names in each folder are likely to be
    CopyAttributes m_attributes;
    LetterCase m_letterCase;
    bool m_flushesBeforeReplacing;
    std::optional<bool> m_hasUnnamedFiles;                ///< nothing until it has been tried
    std::shared_ptr<const FileDescriptor> m_sourceFolder; ///< null until asked for, as the next one
    std::shared_ptr<const TargetFolder> m_targetFolder;
    qsizetype m_maximumPrepared;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/CopyAnchor.h"
#include "KeelbrightCore/platform/files/CopyAttributes.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/files/LetterCase.h"
#include "KeelbrightCore/platform/files/NameForms.h"
#include "KeelbrightCore/platform/files/SourceFolders.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"

#include <map>
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

    [[nodiscard]] std::expected<void, FileError> enterFolder(QByteArrayView relativeFolder,
                                                             const DirectoryEnumerator* items) override;
    void setFilledFolderHandler(FilledFolderHandler handler) override;
    void leaveFolders() override;
    [[nodiscard]] bool isOwnFolder(const DirectoryEnumerator& item) const override;
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

    /// What is kept with each entered folder.
    struct Level
    {
        NameIs likelyName = NameIs::free;                  ///< of the names in it
        std::optional<CopyAttributes::FolderEnd> end = {}; ///< for the copy of a folder
        NameForms forms = {};                              ///< of the names in it
        bool goesIfEmpty = false;                          ///< when the run does not come to its copies
    };

    [[nodiscard]] std::expected<void, FileError> goTo(QByteArrayView relativeFolder,
                                                      const DirectoryEnumerator* items);
    /// `sources` stand at the folder that this one is a copy of; null where it is none.
    [[nodiscard]] std::expected<void, FileError> enterOrCreate(const QByteArray& name,
                                                               const SourceFolders* sources);
    void noteSource(const QByteArray& copy, int source);
    void beginSource();
    [[nodiscard]] bool leaveFolder();
    [[nodiscard]] QByteArray twinOf(QByteArrayView name);
    /// The entered folder and the one that the planned items lie in, opened for copies that are published
    /// after others have been entered.
    [[nodiscard]] std::expected<void, int> openFolders(const DirectoryEnumerator& item);
    [[nodiscard]] bool hasUnnamedFiles();

    /// Who fills the copy of a source in this run.
    struct Filling
    {
        FolderId firstSource;
        bool isShared = false; ///< by sources of the same name
    };

    std::shared_ptr<CopyAnchor> m_anchor;
    FolderId m_copyOfSource;                  ///< that is being filled
    std::map<QByteArray, Filling> m_fillings; ///< by the path of the copy below the anchor
    bool m_isShared = false;                  ///< the copy that is being filled
    FolderChain<Level> m_chain;
    FilledFolderHandler m_filledFolderHandler;
    CopyAttributes m_attributes;
    LetterCase m_letterCase;
    NameFormClaims m_formClaims;
    bool m_flushesBeforeReplacing;
    std::optional<bool> m_hasUnnamedFiles;                ///< nothing until it has been tried
    std::shared_ptr<const FileDescriptor> m_sourceFolder; ///< null until asked for, as the next one
    std::shared_ptr<const TargetFolder> m_targetFolder;
    qsizetype m_maximumPrepared;
};

} // namespace keelbright

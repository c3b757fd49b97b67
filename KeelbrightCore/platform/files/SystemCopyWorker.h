#pragma once

#include "KeelbrightCore/platform/files/CopyAttributes.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FileContents.h"
#include "KeelbrightCore/platform/files/TargetFolder.h"
#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <optional>

namespace keelbright {

/// Copies files and links on the real file system. Internal to the platform folder.
class SystemCopyWorker : public CopyWorker
{
public:
    explicit SystemCopyWorker(const CopyAttributes& attributes);

    [[nodiscard]] std::expected<std::unique_ptr<PreparedCopy>, FileError>
    prepare(const PlannedCopy& plan, const Cancellation& cancellation) override;

private:
    using Prepared = std::expected<std::unique_ptr<PreparedCopy>, FileError>;

    /// A file that is being copied.
    struct NewFile
    {
        FileDescriptor newFolder = {}; ///< instead of a target folder that somebody has removed
        UnpublishedFile file;
        bool hasMode = false; ///< that of its source
        bool hasData = false; ///< all of it
        bool isReplacing = false;
        FileDescriptor replaced = {}; ///< the old copy
    };

    [[nodiscard]] Prepared prepareFile(const PlannedCopy& plan, const Cancellation& cancellation);
    [[nodiscard]] std::expected<void, int> finish(NewFile& file, int source, const struct stat& status,
                                                  const PlannedCopy& plan);
    [[nodiscard]] std::expected<NewFile, FileError> createFile(const PlannedCopy& plan, int source,
                                                               const struct stat& status);
    [[nodiscard]] std::expected<NewFile, int> createFileIn(int folder, const TargetFolder& target, int source,
                                                           const struct stat& status);
    [[nodiscard]] std::optional<UnpublishedFile> clone(int folder, int source, const struct stat& status);

    CopyAttributes m_attributes;
    FileContents m_contents;
    bool m_hasUnnamedFiles = true;
    bool m_triesClone = true;
    dev_t m_sourceDevice = 0; ///< that `m_triesClone` was found out for
};

} // namespace keelbright

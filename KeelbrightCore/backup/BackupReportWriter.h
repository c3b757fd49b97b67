#pragma once

#include "KeelbrightCore/backup/BackupReport.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright::BackupReportWriter {

struct WrittenReport
{
    FileURL jsonURL;
    FileURL mdURL;
};

/// Writes the JSON report, then the Markdown report, into an existing folder; the first failure
/// ends it, and what was written stays. Of two runs that began within the same second the later one takes
/// the name; the earlier one's files are kept with "-2" before their endings.
[[nodiscard]] std::expected<WrittenReport, FileError> write(const BackupReport& report,
                                                            const FileURL& reportsDir);

/// The same, but into the anchor of `folder`, which was opened at `reportsDir`: nothing is written
/// elsewhere when another folder has since taken that path.
[[nodiscard]] std::expected<WrittenReport, FileError>
write(const BackupReport& report, const FileURL& reportsDir, CopyDestination& folder);

/// The report as a person reads it, in the user's locale and time zone.
[[nodiscard]] QString generateMarkdown(const BackupReport& report);

} // namespace keelbright::BackupReportWriter

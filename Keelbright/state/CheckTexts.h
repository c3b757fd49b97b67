#pragma once

#include "KeelbrightCore/check/CheckReport.h"

#include <QString>
#include <QStringList>

namespace keelbright {

/// What a check of the copies has to say, in sentences for people.
namespace CheckTexts {

/// With the separators of the user's language.
[[nodiscard]] QString number(qint64 count);
/// The name of the drive that the copies of a device lie on.
[[nodiscard]] QString driveName(const FileURL& deviceFolder);

/// The one sentence of the result.
[[nodiscard]] QString headline(const CheckReport& report);
/// What there is to say besides, a sentence each; none where there is nothing.
[[nodiscard]] QStringList details(const CheckReport& report);

/// Where the file of a finding lies, below the folder of the copies where it is in there.
[[nodiscard]] QString place(const CheckFinding& finding, const CheckReport& report);
[[nodiscard]] QString reason(const CheckFinding& finding);
/// All findings for the clipboard: a line each, its place and its reason.
[[nodiscard]] QString listOf(const CheckReport& report);

} // namespace CheckTexts
} // namespace keelbright

#pragma once

#include "Keelbright/state/Screen.h"
#include "Keelbright/widgets/theme/Roles.h"
#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/health/HealthScore.h"

#include <QString>

namespace keelbright {

/// One number of the Dashboard and the screen that shows its details.
struct Insight
{
    QString title;
    QString value;
    QString subtitle;
    QString icon;
    Role color;
    Screen screen;

    friend bool operator==(const Insight&, const Insight&) = default;
};

/// The numbers of the Dashboard.
namespace Insights {

/// How full the disk is; a dash without a score.
[[nodiscard]] Insight storage(const std::optional<HealthScore>& score);
/// The age of the last backup at `now`.
[[nodiscard]] Insight lastBackup(const std::optional<QDateTime>& time, bool hasReport, const QDateTime& now);
/// How much junk was found; a dash without a score.
[[nodiscard]] Insight junk(const std::optional<HealthScore>& score);
/// How many applications there are, and how many of them are rarely used.
[[nodiscard]] Insight apps(const QList<AppInfo>& apps, bool isScanning);

} // namespace Insights
} // namespace keelbright

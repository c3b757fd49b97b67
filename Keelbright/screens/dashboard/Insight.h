#pragma once

#include "Keelbright/state/Screen.h"
#include "Keelbright/widgets/theme/Roles.h"
#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/health/HealthScore.h"

#include <QString>

namespace keelbright {

/// One number of the Dashboard and the screen that tells more of it.
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

/// What the Dashboard tells at a glance.
namespace Insights {

/// How full the disk is; nothing known without a score.
[[nodiscard]] Insight storage(const std::optional<HealthScore>& score);
/// How old the last backup is at `now`.
[[nodiscard]] Insight lastBackup(const std::optional<QDateTime>& time, bool hasReport, const QDateTime& now);
[[nodiscard]] Insight junk(const std::optional<HealthScore>& score);
[[nodiscard]] Insight apps(const QList<AppInfo>& apps, bool isScanning);

} // namespace Insights
} // namespace keelbright

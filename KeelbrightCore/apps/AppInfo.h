#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QUuid>
#include <optional>

namespace keelbright {

/// The verdict on how an application is used.
enum class UsageCategory { dailyDriver, seasonal, occasional, forgotten, new_, unknown };

[[nodiscard]] const QList<UsageCategory>& allUsageCategories();
/// The text that is shown.
[[nodiscard]] QString rawValue(UsageCategory category);
/// The smaller it is, the earlier the application may be cleaned up.
[[nodiscard]] int sortPriority(UsageCategory category);

/// What is known of an installed application before its use is judged.
struct AppFacts
{
    QUuid id = QUuid::createUuid(); ///< not stable across scans
    QString name = {};
    QString bundleID = {};
    FileURL url = {};
    QString version = {};                       ///< may be empty
    std::optional<QDateTime> lastUsedDate = {}; ///< UTC
    qint64 useCount = 0;
    std::optional<QDateTime> dateAdded = {}; ///< UTC
    bool hasUsageRecord = true;              ///< false where nothing on this machine records any use
    std::optional<qint64> sizeBytes = {};    ///< where its package or its file reports it
    QString themeIcon = {};                  ///< in the icon theme, or an absolute path; empty for a bundle
    QString removalCommand = {};             ///< where it belongs to a package: what removes it
    bool isForAllUsers = false;              ///< the user can not move it to the Trash
};

/// One installed application with the verdict on its use, which is made once and then kept; the
/// fields are not to be changed one by one. Two records are equal exactly when their ids are.
struct AppInfo : AppFacts
{
    using UsageCategory = keelbright::UsageCategory;

    /// Judges the facts as they look at `now`.
    explicit AppInfo(AppFacts facts, const QDateTime& now = systemClock());

    UsageCategory usageCategory = UsageCategory::unknown;
    QString usageDescription; ///< one sentence that says why

    /// "Never", "Today", "5 days ago", "2 years ago"…, seen from `now`; "Unknown" without a record.
    [[nodiscard]] QString lastUsedFormatted(const QDateTime& now = systemClock()) const;
    /// The day of installation in the user's locale, or "Unknown".
    [[nodiscard]] QString installedFormatted() const;

    friend bool operator==(const AppInfo& a, const AppInfo& b) { return a.id == b.id; }

    friend size_t qHash(const AppInfo& app, size_t seed = 0) noexcept { return qHash(app.id, seed); }
};

} // namespace keelbright

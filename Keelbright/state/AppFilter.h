#pragma once

#include "KeelbrightCore/apps/AppInfo.h"

#include <QList>
#include <QStringList>
#include <optional>

namespace keelbright {

/// In which order applications are listed.
enum class SortOption { usagePriority, lastUsed, name, useCount };

[[nodiscard]] const QList<SortOption>& allSortOptions();
/// The label on the screen, in English.
[[nodiscard]] QString rawValue(SortOption option);

/// Which applications are listed.
struct AppFilter
{
    std::optional<UsageCategory> category = {};
    QString searchText = {}; ///< a part of the name, letter case aside; empty for all
    SortOption sortBy = SortOption::usagePriority;

    friend bool operator==(const AppFilter&, const AppFilter&) = default;
};

/// Applications with what is worked out once of each, so that thousands are searched and sorted
/// between two key strokes. Any thread.
class AppIndex
{
public:
    AppIndex() = default;
    explicit AppIndex(QList<AppInfo> apps);

    [[nodiscard]] const QList<AppInfo>& apps() const { return m_apps; }

    /// Those that the filter lets through, in its order; equals keep the order of `apps`.
    [[nodiscard]] QList<AppInfo> filteredApps(const AppFilter& filter) const;

private:
    struct Keys
    {
        QByteArray order; ///< of the name
        QString search;   ///< of the name
        qint64 lastUsed;  ///< milliseconds since 1970; the minimum for never
        int priority;     ///< of the verdict
    };

    [[nodiscard]] QList<qsizetype> matches(const AppFilter& filter) const;

    QList<AppInfo> m_apps;
    QList<Keys> m_keys; ///< one each
};

} // namespace keelbright

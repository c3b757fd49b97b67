#include "Keelbright/state/AppFilter.h"

#include "KeelbrightCore/platform/text/NameComparison.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The distant past for an application that was never used.
qint64 lastUsedMoment(const AppInfo& app)
{
    return app.lastUsedDate ? app.lastUsedDate->toMSecsSinceEpoch() : std::numeric_limits<qint64>::min();
}

} // namespace

const QList<SortOption>& allSortOptions()
{
    static const QList<SortOption> all{SortOption::usagePriority, SortOption::lastUsed, SortOption::name,
                                       SortOption::useCount};
    return all;
}

QString rawValue(SortOption option)
{
    switch (option) {
    case SortOption::usagePriority:
        return QStringLiteral(QT_TRANSLATE_NOOP("SortOption", "Cleanup Priority"));
    case SortOption::lastUsed:
        return QStringLiteral(QT_TRANSLATE_NOOP("SortOption", "Last Used"));
    case SortOption::name:
        return QStringLiteral(QT_TRANSLATE_NOOP("SortOption", "Name"));
    case SortOption::useCount:
        return QStringLiteral(QT_TRANSLATE_NOOP("SortOption", "Times Used"));
    }
    return {};
}

AppIndex::AppIndex(QList<AppInfo> apps)
    : m_apps(std::move(apps))
{
    const NameComparison comparison;
    m_keys.reserve(m_apps.size());
    for (const AppInfo& app : std::as_const(m_apps)) {
        m_keys.append({comparison.sortKey(app.name), comparison.searchForm(app.name), lastUsedMoment(app),
                       sortPriority(app.usageCategory)});
    }
}

QList<qsizetype> AppIndex::matches(const AppFilter& filter) const
{
    const QString searched = NameComparison().searchForm(filter.searchText);
    QList<qsizetype> found;
    for (qsizetype i = 0; i < m_apps.size(); ++i) {
        if (filter.category && m_apps.at(i).usageCategory != *filter.category)
            continue;
        if (m_keys.at(i).search.contains(searched))
            found.append(i);
    }
    return found;
}

QList<AppInfo> AppIndex::filteredApps(const AppFilter& filter) const
{
    QList<qsizetype> found = matches(filter);
    const auto sort = [&found](auto comesBefore) { std::ranges::stable_sort(found, comesBefore); };
    const auto keys = [this](qsizetype index) -> const Keys& { return m_keys.at(index); };
    switch (filter.sortBy) {
    case SortOption::usagePriority:
        sort([&](qsizetype a, qsizetype b) {
            return std::pair(keys(a).priority, keys(a).lastUsed) <
                   std::pair(keys(b).priority, keys(b).lastUsed);
        });
        break;
    case SortOption::lastUsed:
        sort([&](qsizetype a, qsizetype b) { return keys(a).lastUsed < keys(b).lastUsed; });
        break;
    case SortOption::name:
        sort([&](qsizetype a, qsizetype b) { return keys(a).order < keys(b).order; });
        break;
    case SortOption::useCount:
        sort([&](qsizetype a, qsizetype b) { return m_apps.at(a).useCount > m_apps.at(b).useCount; });
        break;
    }
    QList<AppInfo> apps;
    apps.reserve(found.size());
    for (const qsizetype index : std::as_const(found))
        apps.append(m_apps.at(index));
    return apps;
}

} // namespace keelbright

// KDE's record of which applications its menus have started.

#include "KeelbrightCore/apps/UsageRecords.h"

#include <memory>
#include <sqlite3.h>

namespace keelbright {

namespace {

struct CloseDatabase
{
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};

struct EndStatement
{
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

using Database = std::unique_ptr<sqlite3, CloseDatabase>;
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

Database opened(const FileURL& file)
{
    sqlite3* database = nullptr;
    // A handle is made also where opening fails.
    const int result =
        sqlite3_open_v2(file.nativePath().constData(), &database, SQLITE_OPEN_READONLY, nullptr);
    Database owned(database);
    return result == SQLITE_OK ? std::move(owned) : nullptr;
}

Statement prepared(sqlite3* database, const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    return Statement(statement);
}

/// "applications:org.kde.kate.desktop" names an entry by its file.
QString entryId(const QByteArray& resource)
{
    const QByteArrayView start("applications:");
    const QByteArrayView end(".desktop");
    if (!resource.startsWith(start) || !resource.endsWith(end) || resource.size() < start.size() + end.size())
        return {};
    return QString::fromUtf8(resource.sliced(start.size()).chopped(end.size()));
}

} // namespace

UsageRecords::Uses UsageReading::plasmaDatabase(const FileURL& database)
{
    const Database opening = opened(database);
    if (!opening)
        return {};
    // The activity manager may be writing; it does not keep readers waiting for long.
    constexpr int patience = 500; // milliseconds
    sqlite3_busy_timeout(opening.get(), patience);
    const Statement query = prepared(opening.get(), "SELECT targettedResource, COUNT(*), MAX(start) "
                                                    "FROM ResourceEvent "
                                                    "WHERE targettedResource LIKE 'applications:%' "
                                                    "GROUP BY targettedResource");
    UsageRecords::Uses uses;
    while (query && sqlite3_step(query.get()) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(query.get(), 0));
        const QString id = entryId(QByteArray(text));
        if (id.isEmpty())
            continue;
        const AppUse use{.count = sqlite3_column_int64(query.get(), 1),
                         .last = AppUse::dateOf(sqlite3_column_int64(query.get(), 2))};
        uses.insert(id, uses.value(id).combinedWith(use));
    }
    return uses;
}

} // namespace keelbright

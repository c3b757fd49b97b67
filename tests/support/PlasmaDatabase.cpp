#include "tests/support/PlasmaDatabase.h"

#include <sqlite3.h>

namespace keelbright::testing {

PlasmaDatabase::PlasmaDatabase(const FileURL& file)
{
    if (sqlite3_open(file.nativePath().constData(), &m_database) != SQLITE_OK)
        qFatal("can't make %s", file.nativePath().constData());
    run("PRAGMA journal_mode = WAL");
    run("PRAGMA synchronous = OFF"); // it need not outlive the loss of power
    run("CREATE TABLE IF NOT EXISTS ResourceEvent (usedActivity TEXT, initiatingAgent TEXT, "
        "targettedResource TEXT, start INTEGER, end INTEGER)");
}

PlasmaDatabase::~PlasmaDatabase()
{
    sqlite3_close(m_database);
}

void PlasmaDatabase::addEvent(const QByteArray& resource, const QDateTime& start) const
{
    const QByteArray seconds = QByteArray::number(start.toSecsSinceEpoch());
    run("INSERT INTO ResourceEvent VALUES ('a1b2', 'org.kde.plasma.kickoff', '" + resource + "', " + seconds +
        ", " + seconds + ')');
}

void PlasmaDatabase::beginWriting() const
{
    run("BEGIN IMMEDIATE");
    addEvent("applications:unfinished.desktop", QDateTime::fromSecsSinceEpoch(1));
}

void PlasmaDatabase::run(const QByteArray& sql) const
{
    if (sqlite3_exec(m_database, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql.constData(), sqlite3_errmsg(m_database));
}

} // namespace keelbright::testing

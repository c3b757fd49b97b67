#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QDateTime>

struct sqlite3;

namespace keelbright::testing {

/// The database of KDE's activity manager, with the tables and the journal that it makes itself.
class PlasmaDatabase
{
public:
    /// The folder exists.
    explicit PlasmaDatabase(const FileURL& file);
    ~PlasmaDatabase();
    PlasmaDatabase(const PlasmaDatabase&) = delete;
    PlasmaDatabase& operator=(const PlasmaDatabase&) = delete;

    void addEvent(const QByteArray& resource, const QDateTime& start) const;
    /// A writer is at work until this goes.
    void beginWriting() const;

private:
    void run(const QByteArray& sql) const;

    sqlite3* m_database = nullptr;
};

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

/// The cache of a browser, never its profile where a cache has a place of its own.
struct BrowserCache
{
    FileURL folder;
    QString browser = {};         ///< for people; empty where nothing reports what runs
    QByteArrayList programs = {}; ///< how the paths of its processes end
};

/// Where a machine has what can be thrown away. Places that do not exist may be among them.
struct JunkPlaces
{
    QList<FileURL> caches;        ///< each entry of these folders is an item
    QList<FileURL> logs;          ///< the same
    QList<FileURL> singleLogs;    ///< each an item
    QList<FileURL> programStates; ///< searched for logs, which lie beside what programs still need
    QList<FileURL> developer;     ///< each an item
    QList<FileURL> deviceBackups; ///< each entry of these folders is an item
    QList<BrowserCache> browsers; ///< each an item
    QList<FileURL> trash;         ///< each entry of these folders is an item
    /// Whether a file is an item like a folder.
    bool countsFiles = false;
    /// Whether what has a kind of its own is left out of the other caches.
    bool listsOnce = false;
};

} // namespace keelbright

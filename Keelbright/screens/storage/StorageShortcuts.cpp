#include "Keelbright/screens/storage/StorageShortcuts.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

FileURL StorageShortcuts::folder(Place place)
{
    FileURL home = FileManager::defaultManager().homeDirectory();
    switch (place) {
    case Place::home:
        return home;
    case Place::documents:
        return home.appending(u"Documents"_s);
    case Place::desktop:
        return home.appending(u"Desktop"_s);
    case Place::downloads:
        return home.appending(u"Downloads"_s);
    case Place::pictures:
        return home.appending(u"Pictures"_s);
    }
    Q_UNREACHABLE();
}

QSet<StorageShortcuts::Place> StorageShortcuts::missingPlaces()
{
    QSet<Place> missing;
    for (const Place place : allPlaces) {
        if (!FileManager::defaultManager().fileExists(folder(place)).exists)
            missing.insert(place);
    }
    return missing;
}

void StorageShortcuts::lookUp()
{
    // A place that does not answer, such as a home on a lost network, holds no more than one thread.
    if (std::exchange(m_isLooking, true)) {
        m_looksAgain = true;
        return;
    }
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, missingPlaces), this,
            [this](const QSet<Place>& missing) {
                m_isLooking = false;
                if (std::exchange(m_missing, missing) != missing)
                    Q_EMIT changed();
                if (std::exchange(m_looksAgain, false))
                    lookUp();
            });
}

} // namespace keelbright

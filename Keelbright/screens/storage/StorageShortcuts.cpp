#include "Keelbright/screens/storage/StorageShortcuts.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

FileURL StorageShortcuts::folder(Place place)
{
    const FileManager& files = FileManager::defaultManager();
    switch (place) {
    case Place::home:
        return files.homeDirectory();
    case Place::documents:
        return MachinePlaces(files).userFolder(UserFolder::documents);
    case Place::desktop:
        return MachinePlaces(files).userFolder(UserFolder::desktop);
    case Place::downloads:
        return MachinePlaces(files).userFolder(UserFolder::downloads);
    case Place::pictures:
        return MachinePlaces(files).userFolder(UserFolder::pictures);
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

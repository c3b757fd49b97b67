#pragma once

#include "KeelbrightCore/platform/files/FolderPlace.h"
#include "KeelbrightCore/platform/files/MountWatch.h"

#include <QObject>
#include <optional>

namespace keelbright {

class AppState;

/// Looks in the background whether the drive of the chosen destination is there, whenever one comes or goes
/// or another destination is chosen, and keeps `AppState::isDestinationAway` and where the drive was seen.
/// Begins when the onboarding is passed. Main thread.
///
/// A drive that has gone can leave its mount point as an empty folder. A folder that has lain on one drive
/// and now lies on the one above is such a place, and so is one that the system's table of drives lists.
class DestinationDrive : public QObject
{
    Q_OBJECT

public:
    /// The state outlives it.
    explicit DestinationDrive(AppState& state);

private:
    void followDestination();
    void look();
    void take(const FolderPlace& place);
    void setAway(bool isAway);

    AppState& m_state;
    MountWatch m_mounts;
    std::optional<FileURL> m_folder;
    quint64 m_choice = 0; ///< counts the destinations; older answers are dropped
    bool m_isLooking = false;
    bool m_isLookDue = false;
};

} // namespace keelbright

#include "Keelbright/state/DestinationDrive.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

DestinationDrive::DestinationDrive(AppState& state)
    : m_state(state)
{
    connect(&m_mounts, &MountWatch::changed, this, &DestinationDrive::look);
    connect(&state, &AppState::selectedDestinationChanged, this, &DestinationDrive::followDestination);
    connect(&state, &AppState::isOnboardingCompletedChanged, this, &DestinationDrive::look);
    followDestination();
}

void DestinationDrive::followDestination()
{
    const auto& destination = m_state.selectedDestination();
    const std::optional<FileURL> folder = destination ? std::optional(destination->url) : std::nullopt;
    if (folder == m_folder)
        return;
    m_folder = folder;
    m_state.setDestinationDriveSeenAt(FileURL());
    ++m_choice;
    m_isLooking = false; // an answer that hangs with the drive before is not waited for
    setAway(false);
    look();
}

void DestinationDrive::look()
{
    // Nothing shows the drive before, and the threads of the background need files of their own.
    if (!m_folder || !m_state.isOnboardingCompleted())
        return;
    m_isLookDue = m_isLooking;
    if (std::exchange(m_isLooking, true))
        return;
    const auto ask = [folder = *m_folder] { return placeOf(folder); };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, ask), this,
            [this, choice = m_choice](const FolderPlace& place) {
                if (choice == m_choice)
                    take(place);
            });
}

void DestinationDrive::take(const FolderPlace& place)
{
    m_isLooking = false;
    const bool isAway = !place.isFolder || lacksItsDrive(place, m_state.destinationDriveSeenAt());
    if (!isAway)
        m_state.setDestinationDriveSeenAt(place.mountPoint);
    setAway(isAway);
    if (std::exchange(m_isLookDue, false))
        look();
}

void DestinationDrive::setAway(bool isAway)
{
    if (isAway != m_state.isDestinationAway())
        m_state.setIsDestinationAway(isAway);
}

} // namespace keelbright

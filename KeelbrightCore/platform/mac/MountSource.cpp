#include "KeelbrightCore/platform/files/MountSource.h"

#include "KeelbrightCore/platform/mac/ObjectiveC.h"

#include <array>
#include <cstddef>
#include <utility>

namespace keelbright {

namespace {

using ObjectiveC::send;

constexpr std::array notifications{"NSWorkspaceDidMountNotification", "NSWorkspaceDidUnmountNotification",
                                   "NSWorkspaceDidRenameVolumeNotification"};

using Handler = void (^)(id notification);

/// Listens to the system's notifications, which come on the main thread.
class MountSource : public QObject
{
public:
    explicit MountSource(std::function<void()> changed)
        : m_changed(std::move(changed))
    {
        const ObjectiveC::AutoreleasePool pool;
        const Handler handler = ^(id) {
          m_changed();
        };
        for (size_t index = 0; index < notifications.size(); ++index)
            m_observers[index] = send<id>(m_center, "addObserverForName:object:queue:usingBlock:",
                                          ObjectiveC::string(notifications[index]), id{}, id{}, handler);
    }

    ~MountSource() override
    {
        for (const id observer : m_observers)
            send<void>(m_center, "removeObserver:", observer);
    }

    Q_DISABLE_COPY_MOVE(MountSource)

private:
    std::function<void()> m_changed;
    id m_center =
        send<id>(send<id>(ObjectiveC::classNamed("NSWorkspace"), "sharedWorkspace"), "notificationCenter");
    std::array<id, notifications.size()> m_observers = {}; ///< which the center keeps
};

} // namespace

std::unique_ptr<QObject> watchMounts(std::function<void()> changed)
{
    return std::make_unique<MountSource>(std::move(changed));
}

} // namespace keelbright

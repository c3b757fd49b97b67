#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace keelbright {

/// Notices drives that come and go, wherever they are mounted. Main thread. Silent where the system has no
/// table of mounts that can be watched.
class MountWatch : public QObject
{
    Q_OBJECT

public:
    explicit MountWatch(QObject* parent = nullptr);

Q_SIGNALS:
    /// Something has been mounted, unmounted or mounted in another way.
    void changed();

private:
    FileDescriptor m_table;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace keelbright

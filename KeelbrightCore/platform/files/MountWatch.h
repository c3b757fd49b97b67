#pragma once

#include <QObject>
#include <memory>

namespace keelbright {

/// Notices drives that come and go, wherever they are mounted. Main thread. Silent where the system does
/// not report them.
class MountWatch : public QObject
{
    Q_OBJECT

public:
    explicit MountWatch(QObject* parent = nullptr);

Q_SIGNALS:
    /// Something has been mounted, unmounted or mounted in another way.
    void changed();

private:
    std::unique_ptr<QObject> m_source;
};

} // namespace keelbright

#include "KeelbrightCore/platform/files/MountWatch.h"

namespace keelbright {

MountWatch::MountWatch(QObject* parent)
    : QObject(parent)
    , m_table(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC))
{
    if (!m_table.isOpen())
        return;
    // The kernel reports a change of this file as an exception, once.
    m_notifier = std::make_unique<QSocketNotifier>(m_table.get(), QSocketNotifier::Exception);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &MountWatch::changed);
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/MountSource.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QSocketNotifier>
#include <fcntl.h>
#include <utility>

namespace keelbright {

namespace {

/// Watches the table of mounts.
class MountSource : public QObject
{
public:
    MountSource(FileDescriptor table, std::function<void()> changed)
        : m_table(std::move(table))
        // The kernel reports a change of this file as an exception, once.
        , m_notifier(m_table.get(), QSocketNotifier::Exception)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, std::move(changed));
    }

private:
    FileDescriptor m_table;
    QSocketNotifier m_notifier;
};

} // namespace

std::unique_ptr<QObject> watchMounts(std::function<void()> changed)
{
    FileDescriptor table(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
    if (!table.isOpen())
        return nullptr;
    return std::make_unique<MountSource>(std::move(table), std::move(changed));
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/MountWatch.h"

#include "KeelbrightCore/platform/files/MountSource.h"

namespace keelbright {

MountWatch::MountWatch(QObject* parent)
    : QObject(parent)
{
    m_source = watchMounts([this] { Q_EMIT changed(); });
}

} // namespace keelbright

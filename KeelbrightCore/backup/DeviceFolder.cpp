#include "KeelbrightCore/backup/DeviceFolder.h"

#include "KeelbrightCore/backup/BackupRunner.h"
#include "KeelbrightCore/platform/system/Host.h"

namespace keelbright::DeviceFolder {

QByteArray ofThisMachine()
{
    const QString machine = Host::localizedName().value_or(QStringLiteral("MyMac"));
    const QByteArray name = BackupRunner::sanitize(machine).toUtf8();
    return name.isEmpty() ? QByteArray("Keelbright") : "Keelbright/" + name;
}

} // namespace keelbright::DeviceFolder

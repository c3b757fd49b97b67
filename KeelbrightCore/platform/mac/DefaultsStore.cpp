#include "KeelbrightCore/platform/system/DefaultsStore.h"

namespace keelbright {

std::unique_ptr<QSettings> DefaultsStore::ofTheUser()
{
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                       QStringLiteral("keelbright.com"), QStringLiteral("Keelbright"));
}

QString DefaultsStore::storedKey(const QString& key)
{
    // The native store of Qt takes a slash for what the system's own keys write as a full stop.
    return QString(key).replace(u'.', u'/');
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/UserDefaults.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

#include <QSettings>

namespace keelbright {

namespace {

#ifdef __APPLE__
/// The native store of Qt takes a slash for what the system's own keys write as a full stop.
QString storedKey(QString key)
{
    return key.replace(u'.', u'/');
}
#else
QString storedKey(const QString& key)
{
    return key;
}
#endif

} // namespace

UserDefaults UserDefaults::standard()
{
#ifdef __APPLE__
    return UserDefaults(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                    QStringLiteral("keelbright.com"),
                                                    QStringLiteral("Keelbright")));
#else
    const FileURL file = XdgFolders::configuration(FileManager::defaultManager())
                             .appending(QStringLiteral("Keelbright/UserDefaults.ini"));
    return UserDefaults(std::make_unique<QSettings>(file.path(), QSettings::IniFormat));
#endif
}

UserDefaults::UserDefaults(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings))
{}

UserDefaults::~UserDefaults() = default;
UserDefaults::UserDefaults(UserDefaults&&) noexcept = default;
UserDefaults& UserDefaults::operator=(UserDefaults&&) noexcept = default;

std::optional<QByteArray> UserDefaults::dataForKey(const QString& key) const
{
    const QVariant value = m_settings->value(storedKey(key));
    if (value.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return value.toByteArray();
}

std::optional<QStringList> UserDefaults::stringArrayForKey(const QString& key) const
{
    if (!m_settings->contains(storedKey(key)))
        return std::nullopt;
    const QVariant value = m_settings->value(storedKey(key));
    switch (value.typeId()) {
    case QMetaType::UnknownType: // how the store keeps a list without elements
    case QMetaType::QString:     // and one with a single element
    case QMetaType::QStringList:
        return value.toStringList();
    default:
        return std::nullopt;
    }
}

void UserDefaults::removeObjectForKey(const QString& key)
{
    m_settings->remove(storedKey(key));
    m_settings->sync();
}

void UserDefaults::renameKey(const QString& key, const QString& newKey)
{
    if (key == newKey)
        return;
    m_settings->setValue(storedKey(newKey), m_settings->value(storedKey(key)));
    m_settings->remove(storedKey(key));
    m_settings->sync();
}

} // namespace keelbright

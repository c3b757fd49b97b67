#include "KeelbrightCore/platform/system/UserDefaults.h"

#include "KeelbrightCore/platform/system/DefaultsStore.h"

#include <QSettings>

namespace keelbright {

UserDefaults UserDefaults::standard()
{
    return UserDefaults(DefaultsStore::ofTheUser());
}

UserDefaults::UserDefaults(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings))
{}

UserDefaults::~UserDefaults() = default;
UserDefaults::UserDefaults(UserDefaults&&) noexcept = default;
UserDefaults& UserDefaults::operator=(UserDefaults&&) noexcept = default;

std::optional<QByteArray> UserDefaults::dataForKey(const QString& key) const
{
    const QVariant value = m_settings->value(DefaultsStore::storedKey(key));
    if (value.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return value.toByteArray();
}

std::optional<QStringList> UserDefaults::stringArrayForKey(const QString& key) const
{
    if (!m_settings->contains(DefaultsStore::storedKey(key)))
        return std::nullopt;
    const QVariant value = m_settings->value(DefaultsStore::storedKey(key));
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
    m_settings->remove(DefaultsStore::storedKey(key));
    m_settings->sync();
}

void UserDefaults::renameKey(const QString& key, const QString& newKey)
{
    if (key == newKey)
        return;
    m_settings->setValue(DefaultsStore::storedKey(newKey), m_settings->value(DefaultsStore::storedKey(key)));
    m_settings->remove(DefaultsStore::storedKey(key));
    m_settings->sync();
}

} // namespace keelbright

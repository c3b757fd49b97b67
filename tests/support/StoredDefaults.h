#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QSettings>

namespace keelbright::testing {

/// The file of `UserDefaults`, written as earlier versions of the program have done it.
class StoredDefaults
{
public:
    explicit StoredDefaults(const FileURL& file)
        : m_settings(file.path(), QSettings::IniFormat)
    {}

    void setData(const QString& key, const QByteArray& value) { store(key, value); }

    void setStringArray(const QString& key, const QStringList& value) { store(key, value); }

private:
    void store(const QString& key, const QVariant& value)
    {
        m_settings.setValue(key, value);
        m_settings.sync();
    }

    QSettings m_settings;
};

} // namespace keelbright::testing

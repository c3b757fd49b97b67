#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

class QSettings;

namespace keelbright {

/// The per-user key and value storage of earlier versions, to which nothing new is written. Main thread.
class UserDefaults
{
public:
    /// The user's own: on Linux "Keelbright/UserDefaults.ini" below the configuration folder
    /// (`$XDG_CONFIG_HOME`, else `.config` below the home), on macOS the system's defaults.
    [[nodiscard]] static UserDefaults standard();

    explicit UserDefaults(std::unique_ptr<QSettings> settings);
    ~UserDefaults();
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    UserDefaults(UserDefaults&&) noexcept;
    UserDefaults& operator=(UserDefaults&&) noexcept;

    /// Nothing where the key is unset or holds no data.
    [[nodiscard]] std::optional<QByteArray> dataForKey(const QString& key) const;
    /// Nothing where the key is unset or holds no list of texts.
    [[nodiscard]] std::optional<QStringList> stringArrayForKey(const QString& key) const;
    void removeObjectForKey(const QString& key);
    /// Gives what is kept under a key another one, in a single write: never is it under neither.
    void renameKey(const QString& key, const QString& newKey);

private:
    std::unique_ptr<QSettings> m_settings;
};

} // namespace keelbright

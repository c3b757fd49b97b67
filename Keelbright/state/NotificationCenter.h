#pragma once

#include <QObject>
#include <QVariant>

namespace keelbright {

/// Passes a named message to everything that is connected at that moment; nothing is kept for later
/// connections. Main thread only.
class NotificationCenter : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static NotificationCenter& defaultCenter();

    /// Returns after every receiver was called. `object` is what the message is about, such as a
    /// `FileURL`.
    void post(const QString& name, const QVariant& object = {}) { Q_EMIT posted(name, object); }

Q_SIGNALS:
    void posted(const QString& name, const QVariant& object);
};

/// The storage browser asks for a folder (a `FileURL`) to be organised.
inline constexpr QLatin1StringView organizeFolderNotification{"com.keelbright.organizeFolder"};

} // namespace keelbright

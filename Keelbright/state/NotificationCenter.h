#pragma once

#include <QObject>
#include <QVariant>

namespace keelbright {

/// Hands a named message to whoever listens at that moment; nothing is kept for those who come
/// later. Main thread only.
class NotificationCenter : public QObject
{
    Q_OBJECT

public:
    [[nodiscard]] static NotificationCenter& defaultCenter();

    /// Returns when every listener has heard. `object` is what the message is about, such as a
    /// `FileURL`.
    void post(const QString& name, const QVariant& object = {}) { Q_EMIT posted(name, object); }

Q_SIGNALS:
    void posted(const QString& name, const QVariant& object);
};

/// The storage browser asks for a folder (a `FileURL`) to be organised.
inline constexpr QLatin1StringView organizeFolderNotification{"com.keelbright.organizeFolder"};

} // namespace keelbright

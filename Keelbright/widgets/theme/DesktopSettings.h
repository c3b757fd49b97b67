#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <optional>

namespace keelbright {

/// The desktop's settings for the look: light or dark, high contrast, reduced motion. Follows changes
/// while the program runs. Asks the operating system where that keeps them, and the desktop's settings portal
/// without waiting for it; without an answer the lightness of the platform's palette decides. Main thread.
///
/// The portal client is here and not with the platform's other services because the logic does not
/// link D-Bus.
class DesktopSettings : public QObject
{
    Q_OBJECT

public:
    /// On the session bus; without one there is no portal either.
    explicit DesktopSettings(QObject* parent = nullptr);
    explicit DesktopSettings(const QDBusConnection& bus, QObject* parent = nullptr);

    [[nodiscard]] ColorScheme colorScheme() const;

    /// Where either of the settings that desktops have for it asks for it.
    [[nodiscard]] bool isContrastHigh() const
    {
        return m_isPortalContrastHigh || m_isGnomeContrastHigh || m_isSystemContrastHigh;
    }

    [[nodiscard]] bool isMotionReduced() const { return m_isMotionReduced; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void colorSchemeChanged();
    void isContrastHighChanged();
    void isMotionReducedChanged();

private Q_SLOTS:
    void applySetting(const QString& nameSpace, const QString& key, const QDBusVariant& value);

private:
    void watchPalette();
    void readPalette();
    void watchSystem();
    void readSystem();
    void watchPortal(const QDBusConnection& bus);
    void askPortal(const QDBusConnection& bus, const QString& nameSpace, const QString& key);
    void setPortalScheme(std::optional<ColorScheme> scheme);
    void setContrastHigh(bool& setting, bool isHigh);
    void setMotionReduced(bool isReduced);

    ColorScheme m_paletteScheme = ColorScheme::light;
    std::optional<ColorScheme> m_portalScheme;
    bool m_isPortalContrastHigh = false;
    bool m_isGnomeContrastHigh = false;
    bool m_isSystemContrastHigh = false;
    bool m_isMotionReduced = false;
    bool m_isReadingDue = false;
};

} // namespace keelbright

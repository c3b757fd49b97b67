#include "Keelbright/widgets/theme/DesktopSettings.h"

#include "Keelbright/widgets/SessionBus.h"
#include "KeelbrightCore/platform/system/AccessibilityPreferences.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QPalette>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr auto portalService = "org.freedesktop.portal.Desktop"_L1;
constexpr auto portalPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto portalInterface = "org.freedesktop.portal.Settings"_L1;
constexpr auto appearance = "org.freedesktop.appearance"_L1;
constexpr auto gnomeInterface = "org.gnome.desktop.interface"_L1;
constexpr auto gnomeAccess = "org.gnome.desktop.a11y.interface"_L1;
constexpr auto colorSchemeKey = "color-scheme"_L1;
constexpr auto contrastKey = "contrast"_L1;
constexpr auto gnomeContrastKey = "high-contrast"_L1;
constexpr auto reducedMotionKey = "reduced-motion"_L1;
constexpr auto animationsKey = "enable-animations"_L1;

/// The portal wraps a value once in its signal and twice in the answer of its older method.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// Nothing if the desktop has no preference.
std::optional<ColorScheme> preferredScheme(uint preference)
{
    switch (preference) {
    case 1:
        return ColorScheme::dark;
    case 2:
        return ColorScheme::light;
    default:
        return std::nullopt;
    }
}

} // namespace

DesktopSettings::DesktopSettings(QObject* parent)
    : DesktopSettings(sessionBus(), parent)
{}

DesktopSettings::DesktopSettings(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
{
    watchPalette();
    watchSystem();
    watchPortal(bus);
}

ColorScheme DesktopSettings::colorScheme() const
{
    return m_portalScheme.value_or(m_paletteScheme);
}

void DesktopSettings::watchPalette()
{
    qApp->installEventFilter(this);
    readPalette();
}

void DesktopSettings::readPalette()
{
    // The application's own palette hides the platform's, so it is set aside while that is read.
    const QPalette own = QApplication::palette();
    QApplication::setPalette(QPalette());
    const QPalette platform = QApplication::palette();
    QApplication::setPalette(own);

    const bool isDark =
        platform.color(QPalette::Window).lightnessF() < platform.color(QPalette::WindowText).lightnessF();
    const ColorScheme before = colorScheme();
    m_paletteScheme = isDark ? ColorScheme::dark : ColorScheme::light;
    if (colorScheme() != before)
        Q_EMIT colorSchemeChanged();
}

bool DesktopSettings::eventFilter(QObject* watched, QEvent* event)
{
    // Every window gets this event, and one reading after all of them is enough.
    if (event->type() == QEvent::ThemeChange && !m_isReadingDue) {
        m_isReadingDue = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_isReadingDue = false;
                readPalette();
            },
            Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void DesktopSettings::watchSystem()
{
    // The user changes these settings in another program and then comes back to this one.
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &DesktopSettings::readSystem);
    readSystem();
}

void DesktopSettings::readSystem()
{
    if (const std::optional<bool> isReduced = AccessibilityPreferences::isMotionReduced())
        setMotionReduced(*isReduced);
    if (const std::optional<bool> isHigh = AccessibilityPreferences::isContrastHigh())
        setContrastHigh(m_isSystemContrastHigh, *isHigh);
}

void DesktopSettings::watchPortal(const QDBusConnection& bus)
{
    if (!bus.isConnected())
        return;
    // The bus finds the slot by the names of its types, which have to be registered before.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection connection = bus;
    connection.connect(portalService, portalPath, portalInterface, u"SettingChanged"_s, this,
                       SLOT(applySetting(QString, QString, QDBusVariant)));
    askPortal(bus, appearance, colorSchemeKey);
    askPortal(bus, appearance, contrastKey);
    askPortal(bus, gnomeAccess, gnomeContrastKey); // older portals know no other one
    askPortal(bus, appearance, reducedMotionKey);
    askPortal(bus, gnomeInterface, animationsKey);
}

void DesktopSettings::askPortal(const QDBusConnection& bus, const QString& nameSpace, const QString& key)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, u"Read"_s);
    message.setArguments({nameSpace, key});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, nameSpace, key] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            applySetting(nameSpace, key, reply.value());
        watcher->deleteLater();
    });
}

void DesktopSettings::applySetting(const QString& nameSpace, const QString& key, const QDBusVariant& value)
{
    const QVariant plain = unwrapped(value.variant());
    if (nameSpace == appearance && key == colorSchemeKey) {
        setPortalScheme(preferredScheme(plain.toUInt()));
    } else if (nameSpace == appearance && key == contrastKey) {
        setContrastHigh(m_isPortalContrastHigh, plain.toUInt() == 1);
    } else if (nameSpace == gnomeAccess && key == gnomeContrastKey) {
        setContrastHigh(m_isGnomeContrastHigh, plain.toBool());
    } else if (nameSpace == appearance && key == reducedMotionKey) {
        setMotionReduced(plain.toUInt() == 1);
    } else if (nameSpace == gnomeInterface && key == animationsKey) {
        setMotionReduced(!plain.toBool());
    }
}

void DesktopSettings::setPortalScheme(std::optional<ColorScheme> scheme)
{
    const ColorScheme before = colorScheme();
    m_portalScheme = scheme;
    if (colorScheme() != before)
        Q_EMIT colorSchemeChanged();
}

void DesktopSettings::setContrastHigh(bool& setting, bool isHigh)
{
    const bool before = isContrastHigh();
    setting = isHigh;
    if (isContrastHigh() != before)
        Q_EMIT isContrastHighChanged();
}

void DesktopSettings::setMotionReduced(bool isReduced)
{
    if (isReduced == m_isMotionReduced)
        return;
    m_isMotionReduced = isReduced;
    Q_EMIT isMotionReducedChanged();
}

} // namespace keelbright

#include "Keelbright/state/Screen.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

const QList<Screen>& allScreens()
{
    static const QList<Screen> screens{
        Screen::dashboard,   Screen::protectedItems, Screen::preflight,      Screen::backupProgress,
        Screen::appManager,  Screen::junkCleaner,    Screen::storageBrowser, Screen::organizer,
        Screen::scanResults, Screen::activityLog,    Screen::backupReport,   Screen::restoreBrowser,
        Screen::recovery,    Screen::settings,
    };
    return screens;
}

QString rawValue(Screen screen)
{
    switch (screen) {
    case Screen::dashboard:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Dashboard"));
    case Screen::protectedItems:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Protected Items"));
    case Screen::preflight:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Preflight Check"));
    case Screen::backupProgress:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Backup Progress"));
    case Screen::appManager:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "App Manager"));
    case Screen::junkCleaner:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Junk Cleaner"));
    case Screen::storageBrowser:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Storage Browser"));
    case Screen::organizer:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Smart Organizer"));
    case Screen::scanResults:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Scan Results"));
    case Screen::activityLog:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Activity Log"));
    case Screen::backupReport:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Backup Report"));
    case Screen::restoreBrowser:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Restore Browser"));
    case Screen::recovery:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "New Mac Recovery"));
    case Screen::settings:
        return QStringLiteral(QT_TRANSLATE_NOOP("Screen", "Settings"));
    }
    Q_UNREACHABLE();
}

std::optional<Screen> screenFromRawValue(const QString& text)
{
    for (const Screen screen : allScreens()) {
        if (rawValue(screen) == text)
            return screen;
    }
    return std::nullopt;
}

QString icon(Screen screen)
{
    switch (screen) {
    case Screen::dashboard:
        return u"square.grid.2x2.fill"_s;
    case Screen::protectedItems:
        return u"shield.fill"_s;
    case Screen::preflight:
        return u"checklist"_s;
    case Screen::backupProgress:
        return u"arrow.clockwise.circle"_s;
    case Screen::appManager:
        return u"app.badge.checkmark"_s;
    case Screen::junkCleaner:
        return u"trash.fill"_s;
    case Screen::storageBrowser:
        return u"chart.bar.doc.horizontal"_s;
    case Screen::organizer:
        return u"folder.badge.gearshape"_s;
    case Screen::scanResults:
        return u"magnifyingglass.circle.fill"_s;
    case Screen::activityLog:
        return u"clock.arrow.circlepath"_s;
    case Screen::backupReport:
        return u"doc.text.magnifyingglass"_s;
    case Screen::restoreBrowser:
        return u"externaldrive.badge.timemachine"_s;
    case Screen::recovery:
        return u"sparkles"_s;
    case Screen::settings:
        return u"gear"_s;
    }
    Q_UNREACHABLE();
}

} // namespace keelbright

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace keelbright {

/// An entry of the desktop's menu, as a file "*.desktop" holds it.
struct DesktopEntry
{
    QString type;
    QString name; ///< in the first language that the file has, else as it is without one
    QString exec; ///< the command line, quoted as the file has it
    QString tryExec;
    QString icon;    ///< a name in the icon theme or an absolute path
    QString flatpak; ///< the identifier of the Flatpak that it belongs to; empty where to none
    QString snap;    ///< the name of the Snap that it belongs to; empty where to none
    bool isHidden = false;
    bool isNoDisplay = false;
    std::optional<QStringList> onlyShowIn; ///< the desktops that it is for
    QStringList notShowIn;                 ///< the desktops that it is not for

    /// Reads the group "Desktop Entry", which is not trusted. `languages` are tags such as "de_DE" and
    /// "de", the best one first. Nothing where there is no such group. If a key is there
    /// twice, the last one counts.
    [[nodiscard]] static std::optional<DesktopEntry> fromData(const QByteArray& data,
                                                              const QStringList& languages);

    /// Whether a desktop of these names, the best one first, shows it in its menu.
    [[nodiscard]] bool isShownIn(const QStringList& desktops) const;

    /// The command line as separate arguments; empty where a quote stays open.
    [[nodiscard]] QStringList arguments() const;
    /// The program that is run, with its path if the command line has one; what only sets the environment
    /// before it is passed over. Empty where there is none.
    [[nodiscard]] QString program() const;
};

/// The tags of the user's languages for messages, the best one first, as the environment has them: for
/// "de_DE.UTF-8@euro" these are "de_DE@euro", "de_DE", "de@euro" and "de". They are the languages that the
/// window is shown in: those of LANGUAGE, such as "de_AT:fr", else that of LC_ALL, LC_MESSAGES or LANG. None
/// comes after English.
[[nodiscard]] QStringList messageLanguages();

} // namespace keelbright

#include "tests/support/MadeUpLinux.h"

#include <QList>

namespace keelbright::testing {

namespace {

const QByteArray homePath = "home/mira/";

struct UserFolderName
{
    QByteArray key;
    QByteArray english;
    QByteArray german;
};

// The names that xdg-user-dirs has in its defaults and in its German catalogue.
const QList<UserFolderName> userFolderNames{
    {"DESKTOP", "Desktop", "Schreibtisch"},  {"DOWNLOAD", "Downloads", "Downloads"},
    {"TEMPLATES", "Templates", "Vorlagen"},  {"PUBLICSHARE", "Public", "Öffentlich"},
    {"DOCUMENTS", "Documents", "Dokumente"}, {"MUSIC", "Music", "Musik"},
    {"PICTURES", "Pictures", "Bilder"},      {"VIDEOS", "Videos", "Videos"},
};

} // namespace

MadeUpLinux::MadeUpLinux(MadeUpFiles files, Desktop desktop, Language language)
    : m_files(std::move(files))
    , m_desktop(desktop)
    , m_language(language)
{}

void MadeUpLinux::addUserFolders() const
{
    if (m_desktop == Desktop::windowManager) {
        m_files.folder(homePath + "Documents");
        m_files.folder(homePath + "Pictures");
        return;
    }
    // GNOME and Plasma both start xdg-user-dirs-update with the session, and it writes these lines, after
    // some of comment.
    QByteArray list = "# Written by xdg-user-dirs-update.\n# \n";
    for (const UserFolderName& name : userFolderNames) {
        const QByteArray& folder = m_language == Language::german ? name.german : name.english;
        m_files.folder(homePath + folder);
        list += "XDG_" + name.key + "_DIR=\"$HOME/" + folder + "\"\n";
    }
    m_files.text(homePath + ".config/user-dirs.dirs", list);
    m_files.text(homePath + ".config/user-dirs.locale", m_language == Language::german ? "de_DE" : "en_US");
}

} // namespace keelbright::testing

#include "tests/support/MadeUpLinux.h"

#include <QList>

#include <algorithm>
#include <unistd.h>

namespace keelbright::testing {

namespace {

constexpr qint64 kilobyte = 1'000;
constexpr qint64 megabyte = 1'000'000;

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

void MadeUpLinux::populate() const
{
    addUserFolders();
    addPersonalFiles();
    addCaches();
    addBrowsers();
    addDeveloperCaches();
    addLogs();
    addTrash();
    addYearsOfUse();
    addApplications();
    addOwnApplication();
    addUse();
    addBackupDrive();
}

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

QByteArray MadeUpLinux::userFolder(const QByteArray& key) const
{
    const auto name = std::ranges::find(userFolderNames, key, &UserFolderName::key);
    const bool isTranslated = m_language == Language::german && m_desktop != Desktop::windowManager;
    return homePath + (isTranslated ? name->german : name->english) + '/';
}

void MadeUpLinux::addPersonalFiles() const
{
    m_files.text(userFolder("DESKTOP") + "To do.txt", "Water the plants\nCall the dentist\n", 1);
    m_files.noise(userFolder("DOCUMENTS") + "Taxes/2025/Return.pdf", 201 * kilobyte, 40);
    m_files.noise(userFolder("DOCUMENTS") + "Letters/Letter to Grandma.odt", 24 * kilobyte, 90);
    for (int photo = 0; photo < 12; ++photo) {
        const QByteArray name = "IMG_" + QByteArray::number(4100 + photo) + ".jpg";
        m_files.hole(userFolder("PICTURES") + "Lofoten 2024/" + name, (4 + photo) * megabyte, 600 + photo);
    }
    m_files.hole(userFolder("DOWNLOAD") + "debian-12.8.0-amd64-netinst.iso", 661 * megabyte, 210);
    m_files.noise(userFolder("DOWNLOAD") + "Boarding pass.pdf", 88 * kilobyte, 14);
    m_files.hole(userFolder("VIDEOS") + "Lofoten from above.mkv", 3'400 * megabyte, 590);
    m_files.hole(userFolder("MUSIC") + "Choir/Recording 1.ogg", 31 * megabyte, 150);
}

void MadeUpLinux::addCaches() const
{
    const QByteArray caches = homePath + ".cache/";
    // What fontconfig, Mesa and GStreamer write under any desktop.
    m_files.noise(caches + "fontconfig/4b9e1ab2c0ef3b1a-le64.cache-7", 40 * kilobyte);
    m_files.noise(caches + "mesa_shader_cache/index", 1'300 * kilobyte);
    m_files.noise(caches + "gstreamer-1.0/registry.x86_64.bin", 900 * kilobyte);
    switch (m_desktop) {
    case Desktop::gnome:
        // The thumbnails of Files, the sounds of the shell and the catalogue of Software.
        m_files.noise(caches + "thumbnails/large/3f1b0f2a9c.png", 60 * kilobyte);
        m_files.noise(caches + "event-sound-cache.tdb.0a1b2c.x86_64-pc-linux-gnu", 12 * kilobyte);
        m_files.noise(caches + "gnome-software/appstream/components.xmlb", 2'000 * kilobyte);
        break;
    case Desktop::plasma:
        // KDE's shared caches are plain files; that of its services has the language in its name.
        m_files.noise(caches + "icon-cache.kcache", 1'000 * kilobyte);
        m_files.noise(caches + (m_language == Language::german ? "ksycoca5_de_abc" : "ksycoca5_en_abc"),
                      500 * kilobyte);
        m_files.noise(caches + "plasmashell/qmlcache/0f.qmlc", 80 * kilobyte);
        break;
    case Desktop::windowManager:
        break;
    }
}

void MadeUpLinux::addBrowsers() const
{
    const QByteArray profile = "a1b2c3d4.default-release";
    // Each with its folder of caches and the folder that holds its profiles. Flatpak and Snap give a program
    // base folders of its own; Snap's Firefox and Chromium use those that all their revisions share.
    const QList<std::pair<QByteArray, QByteArray>> firefoxes{
        {".cache/", ".mozilla/"},
        {".var/app/org.mozilla.firefox/cache/", ".var/app/org.mozilla.firefox/.mozilla/"},
        {"snap/firefox/common/.cache/", "snap/firefox/common/.mozilla/"}};
    for (const auto& [caches, profiles] : firefoxes) {
        m_files.noise(homePath + caches + "mozilla/firefox/" + profile + "/cache2/entries/0A1B",
                      200 * kilobyte);
        m_files.noise(homePath + profiles + "firefox/" + profile + "/places.sqlite", 50 * kilobyte);
    }
    const QList<std::pair<QByteArray, QByteArray>> chromiums{
        {".cache/", ".config/"},
        {".var/app/org.chromium.Chromium/cache/", ".var/app/org.chromium.Chromium/config/"},
        {"snap/chromium/common/.cache/", "snap/chromium/common/"}};
    for (const auto& [caches, profiles] : chromiums) {
        m_files.noise(homePath + caches + "chromium/Default/Cache/Cache_Data/f_000001", 100 * kilobyte);
        m_files.noise(homePath + profiles + "chromium/Default/History", 40 * kilobyte);
    }
}

void MadeUpLinux::addDeveloperCaches() const
{
    // As each tool's own documentation has it: the README of npm's cacache, "Cargo Home" in the Cargo Book,
    // "Gradle-managed Directories", `pip cache dir`, `go help cache` and ccache(1). Go's "-d" is an output,
    // ccache's "R" a result.
    m_files.noise(homePath + ".npm/_cacache/content-v2/sha512/00/11/2233", 70 * kilobyte);
    m_files.text(homePath + ".npm/_update-notifier-last-checked", "");
    m_files.noise(homePath + ".cargo/registry/cache/index.crates.io-6f17d22bba15001f/serde-1.0.0.crate",
                  60 * kilobyte);
    m_files.noise(homePath + ".cargo/bin/cargo", 5 * kilobyte);
    m_files.noise(homePath + ".gradle/caches/modules-2/files-2.1/junit.jar", 50 * kilobyte);
    m_files.text(homePath + ".gradle/gradle.properties", "org.gradle.daemon=true\n");
    m_files.noise(homePath + ".cache/pip/http/0/1/2/3/4/0123", 40 * kilobyte);
    m_files.noise(homePath + ".cache/go-build/00/00ff-d", 30 * kilobyte);
    m_files.noise(homePath + ".cache/ccache/0/1/23R", 20 * kilobyte);
}

void MadeUpLinux::addLogs() const
{
    // Debian's Xsession starts every session on X with its output in the first of these.
    if (m_desktop != Desktop::gnome) {
        m_files.noise(homePath + ".xsession-errors", 9 * kilobyte);
        m_files.noise(homePath + ".local/share/xorg/Xorg.0.log", 30 * kilobyte);
        m_files.noise(homePath + ".local/share/xorg/Xorg.0.log.old", 31 * kilobyte);
    }
    // The base directory specification of freedesktop.org puts logs and histories into this folder. Neovim's
    // names are those of its `:help standard-path`, WirePlumber's is that of its saved volumes, and Python's
    // is where people let PYTHON_HISTORY point. Syncthing's stand for programs with a folder of logs.
    const QByteArray state = homePath + ".local/state/";
    m_files.noise(state + "nvim/log", 7 * kilobyte);
    m_files.noise(state + "nvim/shada/main.shada", 8 * kilobyte);
    m_files.noise(state + "syncthing/logs/main.txt", 6 * kilobyte);
    m_files.noise(state + "syncthing/index.db", 300 * kilobyte);
    m_files.noise(state + "wireplumber/restore-stream", 2 * kilobyte);
    m_files.noise(state + "python_history", 3 * kilobyte);
}

void MadeUpLinux::addTrash() const
{
    // By the Trash specification of freedesktop.org: each thing, and a file of its name that tells where it
    // was, as in a URL.
    const QByteArray trash = homePath + ".local/share/Trash/";
    m_files.noise(trash + "files/Old letter.odt", 25 * kilobyte);
    m_files.noise(trash + "files/Drafts/draft.odt", 35 * kilobyte);
    for (const QByteArray name : {"Old letter.odt", "Drafts"})
        m_files.text(trash + "info/" + name + ".trashinfo",
                     "[Trash Info]\nPath=" +
                         (m_files.root().nativePath() + "/home/mira/" + name).toPercentEncoding("/") +
                         "\nDeletionDate=2026-02-01T10:00:00\n");
}

/// What grows in the places of the other parts.
void MadeUpLinux::addYearsOfUse() const
{
    const QByteArray caches = homePath + ".cache/";
    const QByteArray entries = "mozilla/firefox/a1b2c3d4.default-release/cache2/entries/";
    m_files.hole(caches + entries + "4C5D", 612 * megabyte);
    m_files.hole(homePath + ".var/app/org.mozilla.firefox/cache/" + entries + "6E7F", 233 * megabyte);
    m_files.hole(caches + "thumbnails/x-large/8d1f20b3c4.png", 84 * megabyte);
    m_files.hole(caches + "mesa_shader_cache/foz_cache.foz", 310 * megabyte);
    m_files.hole(caches + "pip/http/5/6/7/8/9/5678", 1'210 * megabyte);
    m_files.hole(homePath + ".npm/_cacache/content-v2/sha512/44/55/6677", 540 * megabyte);
    m_files.hole(homePath + ".local/state/syncthing/logs/last year.txt", 14 * megabyte);
    m_files.hole(homePath + ".local/share/Trash/files/Drafts/film.mkv", 1'900 * megabyte);
    m_files.hole(homePath + ".var/app/org.gnome.Maps/cache/shumate/tiles.db", 27 * megabyte);
}

void MadeUpLinux::addProcesses(const QList<QByteArrayList>& commands) const
{
    // By proc(5): each argument has a null byte at its end, and the user comes in four roles.
    int number = 1000;
    for (const QByteArrayList& command : commands) {
        const QByteArray process = "proc/" + QByteArray::number(++number) + '/';
        m_files.text(process + "cmdline", command.join('\0') + '\0');
        m_files.text(process + "status",
                     "Name:\tprogram\nUid:\t" + QByteArray::number(::getuid()) + "\t0\t0\t0\n");
    }
}

void MadeUpLinux::addBackupDrive() const
{
    m_files.folder("media/mira/Backup Drive/lost+found");
}

} // namespace keelbright::testing

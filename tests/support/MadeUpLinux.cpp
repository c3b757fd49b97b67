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
        // KDE's shared caches are plain files.
        m_files.noise(caches + "icon-cache.kcache", 1'000 * kilobyte);
        m_files.noise(caches + "ksycoca5_de_abc", 500 * kilobyte);
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
    int number = 1000;
    for (const QByteArrayList& command : commands) {
        const QByteArray process = "proc/" + QByteArray::number(++number) + '/';
        m_files.text(process + "cmdline", command.join('\0') + '\0');
        m_files.text(process + "status",
                     "Name:\tprogram\nUid:\t" + QByteArray::number(::getuid()) + "\t0\t0\t0\n");
    }
}

void MadeUpLinux::addEntry(const QByteArray& path, const QByteArray& lines, int daysOld) const
{
    m_files.text(path, "[Desktop Entry]\nVersion=1.0\nType=Application\n" + lines, daysOld);
}

void MadeUpLinux::addApplications() const
{
    addEntry("usr/share/applications/org.gnome.Nautilus.desktop",
             "Name=Files\nName[de]=Dateien\nExec=nautilus --new-window %U\nIcon=org.gnome.Nautilus\n");
    addPackage("nautilus", "43.2-1", 3'900,
               {"/.", "/usr", "/usr/bin/nautilus", "/usr/share/applications/org.gnome.Nautilus.desktop"},
               700);
    addSnap("firefox", "Firefox", "121.0-1", 90);
    addAppImage("Applications/krita-5.2.2-x86_64.appimage", 300 * kilobyte, 60);
    // As the tool that integrates AppImages into the menu writes it.
    addEntry(homePath + ".local/share/applications/appimagekit_0a1b-Krita.desktop",
             "Name=Krita\nExec=/home/mira/Applications/krita-5.2.2-x86_64.appimage %F\nIcon=krita\n");
    addFlatpak("org.gnome.Maps", "Maps", "45.2", 12'345'678, 200);
}

void MadeUpLinux::addOwnApplication() const
{
    m_files.program(homePath + ".local/bin/tidetable", "#!/bin/sh\n");
    addEntry(homePath + ".local/share/applications/tidetable.desktop",
             "Name=Tide Table\nExec=/home/mira/.local/bin/tidetable\nIcon=tidetable\n", 900);
    m_files.text(homePath + ".config/tidetable/settings.ini", "[harbour]\nname=Reine\n");
    m_files.hole(homePath + ".local/share/tidetable/harbours.db", 41 * megabyte);
    m_files.hole(homePath + ".cache/tidetable/charts", 9 * megabyte);
}

void MadeUpLinux::addUse() const
{
    if (m_desktop != Desktop::gnome)
        return;
    // As gnome-shell's shell-app-usage.c writes it, five minutes after a change: the score is the time in
    // focus in units of seven seconds. One below 3,214 that was not seen for a week is dropped from the file.
    QByteArray state = "<?xml version=\"1.0\"?>\n<application-state>\n  <context id=\"\">\n";
    const auto add = [&](const QByteArray& id, int score, int daysAgo) {
        const qint64 seconds = m_files.now().addDays(-daysAgo).toSecsSinceEpoch();
        state += "    <application id=\"" + id + ".desktop\" score=\"" + QByteArray::number(score) +
                 "\" last-seen=\"" + QByteArray::number(seconds) + "\"/>\n";
    };
    add("firefox_firefox", 18'900, 0);
    add("org.gnome.Nautilus", 3'600, 10);
    add("tidetable", 6'900, 200);
    state += "  </context>\n</application-state>\n";
    m_files.text(homePath + ".local/share/gnome-shell/application_state", state, 0);
}

void MadeUpLinux::addBackupDrive() const
{
    m_files.folder("media/mira/Backup Drive/lost+found");
}

void MadeUpLinux::addPackage(const QByteArray& name, const QByteArray& version, int kibibytes,
                             const QByteArrayList& files, int daysOld) const
{
    // One paragraph for each package, whose description goes on with lines that begin with a blank.
    m_files.append("var/lib/dpkg/status",
                   "Package: " + name +
                       "\nStatus: install ok installed\nPriority: optional\nInstalled-Size: " +
                       QByteArray::number(kibibytes) + "\nArchitecture: amd64\nVersion: " + version +
                       "\nDescription: what " + name + " does\n Version: not this one\n .\n\n");
    m_files.text("var/lib/dpkg/info/" + name + ".list", files.join('\n') + '\n', daysOld);
}

void MadeUpLinux::addFlatpak(const QByteArray& id, const QByteArray& name, const QByteArray& version,
                             quint64 size, int daysOld) const
{
    const QByteArray installation = "var/lib/flatpak/";
    const QByteArray active = installation + "app/" + id + "/x86_64/stable/0a1b2c/";
    m_files.link(installation + "app/" + id + "/current", "x86_64/stable");
    m_files.link(installation + "app/" + id + "/x86_64/stable/active", "0a1b2c");
    addEntry(active + "export/share/applications/" + id + ".desktop",
             "Name=" + name + "\nExec=/usr/bin/flatpak run --branch=stable --arch=x86_64 " + id +
                 "\nIcon=" + id + "\nX-Flatpak=" + id + '\n');
    m_files.link(installation + "exports/share/applications/" + id + ".desktop",
                 "../../../app/" + id + "/current/active/export/share/applications/" + id + ".desktop");
    m_files.text(active + "files/share/metainfo/" + id + ".metainfo.xml",
                 "<?xml version=\"1.0\"?>\n<component type=\"desktop-application\">\n<id>" + id +
                     "</id>\n<releases>\n<release version=\"" + version +
                     "\" date=\"2026-01-01\"/>\n<release version=\"1.0\"/>\n</releases>\n</component>\n");
    // The serialised GVariant "(ssasta{sv})": origin, commit, no subpaths, size, no more metadata.
    QByteArray deploy = QByteArray("flathub") + '\0' + QByteArray(64, 'c') + '\0';
    const auto firstEnd = static_cast<char>(QByteArrayView("flathub").size() + 1);
    const auto secondEnd = static_cast<char>(deploy.size());
    while (deploy.size() % 8 != 0)
        deploy += '\0';
    for (int shift = 56; shift >= 0; shift -= 8)
        deploy += static_cast<char>(size >> static_cast<unsigned>(shift));
    deploy += secondEnd; // of the empty list of subpaths
    deploy += secondEnd;
    deploy += firstEnd;
    m_files.text(active + "deploy", deploy, daysOld);
}

void MadeUpLinux::addSnap(const QByteArray& instance, const QByteArray& name, const QByteArray& version,
                          int daysOld) const
{
    addEntry("var/lib/snapd/desktop/applications/" + instance + '_' + instance + ".desktop",
             "X-SnapInstanceName=" + instance + "\nName=" + name +
                 "\nExec=env BAMF_DESKTOP_FILE_HINT=/var/lib/snapd/desktop/applications/" + instance + '_' +
                 instance + ".desktop /snap/bin/" + instance + " %u\nIcon=/snap/" + instance +
                 "/7/default256.png\n");
    m_files.text("snap/" + instance + "/7/meta/snap.yaml",
                 "name: " + instance + "\nversion: '" + version + "'\nsummary: what it does\n");
    m_files.link("snap/" + instance + "/current", "7");
    m_files.noise("var/lib/snapd/snaps/" + instance + "_7.snap", 250 * kilobyte, daysOld);
}

void MadeUpLinux::addAppImage(const QByteArray& path, qint64 bytes, int daysOld) const
{
    QByteArray content(bytes, '\0');
    content.replace(0, 11,
                    QByteArray("\x7F"
                               "ELF"
                               "\x02\x01\x01\x00"
                               "AI\x02",
                               11));
    m_files.text(homePath + path, content, daysOld);
}

} // namespace keelbright::testing

// The applications of a made-up Linux home, what installs them, and what desktops record of their use.

#include "tests/support/MadeUpLinux.h"
#include "tests/support/PlasmaDatabase.h"

#include <QList>

namespace keelbright::testing {

namespace {

constexpr qint64 kilobyte = 1'000;
constexpr qint64 megabyte = 1'000'000;

const QByteArray homePath = "home/mira/";

} // namespace

void MadeUpLinux::addEntry(const QByteArray& path, const QByteArray& lines, int daysOld) const
{
    m_files.text(path, "[Desktop Entry]\nVersion=1.0\nType=Application\n" + lines, daysOld);
}

void MadeUpLinux::addProgramsOfDesktop() const
{
    // The entries have the names that these programs install, which Debian's packages bring.
    const auto add = [this](const QByteArray& package, const QByteArray& version, int kibibytes,
                            const QByteArray& id, const QByteArray& lines) {
        addEntry("usr/share/applications/" + id + ".desktop", lines);
        addPackage(package, version, kibibytes,
                   {"/.", "/usr", "/usr/bin/" + package, "/usr/share/applications/" + id + ".desktop"}, 700);
    };
    switch (m_desktop) {
    case Desktop::gnome:
        add("nautilus", "43.2-1", 3'900, "org.gnome.Nautilus",
            "Name=Files\nName[de]=Dateien\nExec=nautilus --new-window %U\nIcon=org.gnome.Nautilus\n");
        break;
    case Desktop::plasma:
        add("dolphin", "4:22.12.3-1", 2'300, "org.kde.dolphin",
            "Name=Dolphin\nName[de]=Dolphin\nGenericName=File Manager\nGenericName[de]=Dateiverwaltung\n"
            "Exec=dolphin %u\nIcon=system-file-manager\n");
        break;
    case Desktop::windowManager:
        add("evince", "43.1-2", 1'400, "org.gnome.Evince",
            "Name=Document Viewer\nName[de]=Dokumentenbetrachter\nExec=evince %U\nIcon=org.gnome.Evince\n");
        add("gimp", "2.10.34-1", 21'700, "gimp",
            "Name=GNU Image Manipulation Program\nExec=gimp-2.10 %U\nIcon=gimp\n");
        break;
    }
}

void MadeUpLinux::addApplications() const
{
    addProgramsOfDesktop();
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
    switch (m_desktop) {
    case Desktop::gnome:
        addUseOnGnome();
        break;
    case Desktop::plasma:
        addUseOnPlasma();
        break;
    case Desktop::windowManager:
        addUseOfDocuments();
        break;
    }
}

void MadeUpLinux::addUseOnGnome() const
{
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

void MadeUpLinux::addUseOnPlasma() const
{
    // As KDE's kactivitymanagerd writes it, with a row for each start from a menu.
    const QByteArray folder = homePath + ".local/share/kactivitymanagerd/resources";
    m_files.folder(folder);
    const PlasmaDatabase database(m_files.at(folder + "/database"));
    const auto add = [&](const QByteArray& id, int starts, int lastDaysAgo) {
        for (int start = 0; start < starts; ++start)
            database.addEvent("applications:" + id + ".desktop", m_files.now().addDays(-lastDaysAgo - start));
    };
    add("firefox_firefox", 60, 1);
    add("org.kde.dolphin", 25, 3);
    add("tidetable", 50, 200);
}

void MadeUpLinux::addUseOfDocuments() const
{
    // As GLib writes the bookmarks of GTK's recent files: by document, the programs that have opened it.
    QByteArray bookmarks = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xbel version=\"1.0\"\n"
                           "      xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\"\n"
                           "      xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\"\n>\n";
    const auto add = [&](const QByteArray& document, const QByteArray& type, const QByteArray& program,
                         int count, int daysAgo) {
        const QByteArray time =
            m_files.now().addDays(-daysAgo).toUTC().toString(u"yyyy-MM-dd'T'HH:mm:ss'.000000Z'").toLatin1();
        const QByteArray path = m_files.at(document).nativePath().toPercentEncoding("/");
        bookmarks +=
            "  <bookmark href=\"file://" + path + "\" added=\"" + time + "\" modified=\"" + time +
            "\" visited=\"" + time +
            "\">\n    <info>\n      <metadata owner=\"http://freedesktop.org\">\n"
            "        <mime:mime-type type=\"" +
            type + "\"/>\n        <bookmark:applications>\n          <bookmark:application " + program +
            " modified=\"" + time + "\" count=\"" + QByteArray::number(count) +
            "\"/>\n        </bookmark:applications>\n      </metadata>\n    </info>\n  </bookmark>\n";
    };
    const QByteArray viewer = "name=\"Document Viewer\" exec=\"&apos;evince %u&apos;\"";
    const QByteArray editor = "name=\"GNU Image Manipulation Program\" exec=\"&apos;gimp-2.10 %u&apos;\"";
    const QByteArray photos = userFolder("PICTURES") + "Lofoten 2024/";
    add(userFolder("DOCUMENTS") + "Taxes/2025/Return.pdf", "application/pdf", viewer, 9, 5);
    add(userFolder("DOWNLOAD") + "Boarding pass.pdf", "application/pdf", viewer, 2, 14);
    add(photos + "IMG_4100.jpg", "image/jpeg", editor, 4, 40);
    add(photos + "IMG_4101.jpg", "image/jpeg", editor, 1, 43);
    m_files.text(homePath + ".local/share/recently-used.xbel", bookmarks + "</xbel>\n", 5);
}

void MadeUpLinux::addPackage(const QByteArray& name, const QByteArray& version, int kibibytes,
                             const QByteArrayList& files, int daysOld) const
{
    // As dpkg keeps its status, in the form of deb-control(5): one paragraph for each package, whose
    // description goes on with lines that begin with a blank. Its list, which `dpkg --listfiles` prints, has
    // folders as well and begins with the root.
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
    // As `flatpak install --system` leaves it: the deployed commit under "active", which "current" leads to,
    // and the entry with its command rewritten, linked from "exports".
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
    // As flatpak-dir.c writes the deploy data, the serialised GVariant "(ssasta{sv})": origin, commit, no
    // subpaths, size, no more metadata.
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
    // As `snap install` leaves it: the entry with its instance and its command rewritten, a folder for each
    // revision, whose number the file of the snap has as well, and a link to the one in use.
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
    // By the AppImage specification: an ELF file whose bytes 8 to 10 are "AI" and the type, here 2.
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

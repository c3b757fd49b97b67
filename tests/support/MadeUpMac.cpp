#include "tests/support/MadeUpMac.h"

#include "tests/support/MadeUpApplication.h"

namespace keelbright::testing {

namespace {

constexpr qint64 kilobyte = 1'000;
constexpr qint64 megabyte = 1'000'000;

const QByteArray homePath = "Users/mira/";
const QByteArray libraryPath = homePath + "Library/";

struct Installed
{
    QByteArray folder;
    MadeUpApplication application;
};

// clang-format off
const QList<Installed> applications{
    {"Applications", {"Sketchbook", "com.example.Sketchbook", "4.2.1", PropertyListForm::binary, 0xF08A00, 310 * megabyte, 200, 640, 900}},
    {"Applications", {"Harbour Mail", "com.example.HarbourMail", "12.0", PropertyListForm::xml, 0x0A6CFF, 88 * megabyte, 0, 2210, 1100}},
    {"Applications", {"Tidewater", "com.example.Tidewater", "2.8", PropertyListForm::binary, 0x2AA3B8, 54 * megabyte, 45, 30, 500}},
    {"Applications", {"Old Scanner", "com.example.OldScanner", "0.9", PropertyListForm::xml, 0x6E6E73, 120 * megabyte, 720, 2, 1000}},
    {"Applications", {"Just Installed", "com.example.JustInstalled", "1.0", PropertyListForm::xml, 0x28A745, 20 * megabyte, 1, 3, 4}},
    {"Applications", {"Never Indexed", "com.example.NeverIndexed", "3.1", PropertyListForm::binary, 0x9B4DE0, 33 * megabyte}},
    {"Applications/Utilities", {"Disk Doctor", "com.example.DiskDoctor", "5.0", PropertyListForm::xml, 0xE5383B, 12 * megabyte, 10, 80, 2000}},
    {"Users/mira/Applications", {"Brew Timer", "com.example.BrewTimer", "1.3", PropertyListForm::xml, 0xE8478B, 6 * megabyte, 70, 12, 400}},
};
// clang-format on

void addDocuments(const MadeUpFiles& files)
{
    const QByteArray documents = homePath + "Documents/";
    files.text(homePath + "Desktop/To do.txt", "Water the plants\nCall the dentist\n", 1);
    files.noise(homePath + "Desktop/Screenshot 2026-02-27 at 18.04.31.png", 410 * kilobyte, 3);
    files.text(homePath + "Desktop/.localized", "");
    files.noise(documents + "Taxes/2024/Return.pdf", 182 * kilobyte, 400);
    files.noise(documents + "Taxes/2025/Return.pdf", 201 * kilobyte, 40);
    files.noise(documents + "Letters/Letter to Grandma.docx", 24 * kilobyte, 90);
    files.noise(documents + "Letters/Geburtstagsgrüße für Anna.docx", 26 * kilobyte, 12);
    files.text(documents + "Recipes/Grandma's plum cake.md", "# Plum cake\n\n1 kg plums, 500 g flour\n", 700);
    files.text(documents + "Empty note.txt", "");
    files.folder(documents + "Empty folder");
    files.link(documents + "Latest return", "Taxes/2025/Return.pdf");
    files.link(documents + "All letters", "Letters");
    files.text(documents + ".hidden diary.txt", "nobody reads this");
}

/// A developer's project, most of which is left out of a backup.
void addProject(const MadeUpFiles& files)
{
    const QByteArray project = homePath + "Documents/Projects/garden-planner/";
    files.text(project + "README.md", "# Garden planner\n", 20);
    files.text(project + "src/main.js", "console.log('Hello, garden');\n", 5);
    files.text(project + "Build/notes.txt", "a folder whose name only looks like one that is skipped\n", 5);
    files.text(project + "cache", "a file that is called like a skipped folder\n", 5);
    files.text(project + ".git/HEAD", "ref: refs/heads/main\n");
    for (int package = 0; package < 20; ++package)
        files.text(project + "node_modules/package-" + QByteArray::number(package) + "/index.js",
                   "exports = 1\n");
    files.noise(project + "build/main.o", 90 * kilobyte);
    files.noise(project + "src/parser.o", 12 * kilobyte);
    files.text(project + "Garden.app/Contents/Info.plist", "<plist/>");
}

void addPictures(const MadeUpFiles& files)
{
    const QByteArray pictures = homePath + "Pictures/";
    for (int photo = 0; photo < 24; ++photo) {
        const QByteArray name = "IMG_" + QByteArray::number(4100 + photo) + ".jpg";
        files.noise(pictures + "Lofoten 2024/" + name, (60 + 7 * photo) * kilobyte, 600 + photo);
    }
    files.noise(pictures + "Wedding/Anna & Björn.heic", 350 * kilobyte, 1200);
    files.noise(pictures + "Photos Library.photoslibrary/originals/0/0A1B2C.heic", 240 * kilobyte, 300);
    files.text(pictures + "Photos Library.photoslibrary/database/Photos.sqlite", "SQLite format 3", 300);
}

void addDownloadsAndMedia(const MadeUpFiles& files)
{
    const QByteArray downloads = homePath + "Downloads/";
    files.hole(downloads + "Installer.dmg", 1'240 * megabyte, 210);
    files.hole(downloads + "ubuntu.ISO", 4'700 * megabyte, 500);
    files.noise(downloads + "Boarding pass.pdf", 88 * kilobyte, 14);
    files.noise(downloads + "photo-export.zip", 640 * kilobyte, 60);
    files.text(downloads + "contacts.csv", "name,mail\nAnna,anna@example.org\n", 33);
    files.hole(homePath + "Movies/Lofoten from above.mov", 3'400 * megabyte, 590);
    files.hole(homePath + "Movies/Birthday 2025.mp4", 860 * megabyte, 250);
    files.noise(homePath + "Music/Choir/Recording 1.m4a", 310 * kilobyte, 150);
    files.noise(homePath + "Music/Choir/Recording 2.m4a", 290 * kilobyte, 150);
}

void addCaches(const MadeUpFiles& files)
{
    files.hole(libraryPath + "Caches/com.apple.Safari/WebKitCache/blob", 412 * megabyte);
    files.hole(libraryPath + "Caches/com.example.Sketchbook/previews.db", 96 * megabyte);
    files.hole(libraryPath + "Caches/Firefox/Profiles/cache2/entries", 233 * megabyte);
    files.text(libraryPath + "Caches/a plain file", "no folder, so no junk");
    files.hole(libraryPath + "Application Support/Google/Chrome/Default/Cache/data_0", 187 * megabyte);
    files.hole(libraryPath + "Logs/DiagnosticReports/crash.ips", 14 * megabyte);
    files.hole(libraryPath + "Logs/Sketchbook/session.log", 3 * megabyte);
    files.hole(libraryPath + "Developer/Xcode/DerivedData/Garden/Index/data", 2'100 * megabyte);
    files.hole(libraryPath + "Developer/Xcode/iOS DeviceSupport/17.2/Symbols/dyld", 1'600 * megabyte);
    files.hole(libraryPath + "Application Support/MobileSync/Backup/00008101-000A/Manifest.db",
               5'300 * megabyte);
    files.hole(homePath + ".Trash/Old drafts/draft.psd", 540 * megabyte);
}

void addLeftovers(const MadeUpFiles& files)
{
    const QByteArray sketchbook = "com.example.Sketchbook";
    files.text(libraryPath + "Preferences/" + sketchbook + ".plist", "<plist/>");
    files.text(libraryPath + "Preferences/" + sketchbook + ".helper.plist", "<plist/>");
    files.hole(libraryPath + "Application Support/Sketchbook/brushes.db", 41 * megabyte);
    files.hole(libraryPath + "Containers/" + sketchbook + "/Data/state", 9 * megabyte);
    files.text(libraryPath + "Saved Application State/" + sketchbook + ".savedState/windows.plist",
               "<plist/>");
    files.text(libraryPath + "LaunchAgents/" + sketchbook + ".plist", "<plist/>");
    files.hole(libraryPath + "Group Containers/ABCDE12345." + sketchbook + "/shared", 2 * megabyte);
    files.text("Library/LaunchDaemons/" + sketchbook + ".plist", "<plist/>");
}

} // namespace

MadeUpMac::MadeUpMac(const FileURL& root, const QDateTime& now)
    : m_files(root, now)
{}

void MadeUpMac::populate() const
{
    addPersonalFiles();
    addLibrary();
    addApplications();
    addBackupDrive();
}

void MadeUpMac::addPersonalFiles() const
{
    addDocuments(m_files);
    addProject(m_files);
    addPictures(m_files);
    addDownloadsAndMedia(m_files);
    m_files.text(homePath + ".zshrc", "export EDITOR=vim\n");
    m_files.text(homePath + ".gitconfig", "[user]\n\tname = Mira\n");
}

void MadeUpMac::addLibrary() const
{
    addCaches(m_files);
    addLeftovers(m_files);
}

void MadeUpMac::addApplications() const
{
    for (const auto& [folder, application] : applications)
        addApplication(m_files, folder, application);
    m_files.text("Applications/Read me.txt", "no application");
    m_files.folder("Applications/Without list.app/Contents");
    addMetadataTool(m_files);
}

void MadeUpMac::addBackupDrive() const
{
    m_files.folder("Volumes/Backup Drive");
}

} // namespace keelbright::testing

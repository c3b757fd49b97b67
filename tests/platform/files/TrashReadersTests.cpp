#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/ImageDrive.h"

#include <QProcess>
#include <QStandardPaths>
#include <map>

namespace keelbright {

using namespace testing;

namespace {

/// What others make of the Trash that is filled here: the desktop's own tool, and another program
/// that knows the same rules.
class TrashReadersTests : public TrashTestCase
{
protected:
    /// Runs a command as the machine's user; what it printed, with all that it complained of.
    QByteArray asUser(const QStringList& command, const QByteArray& input = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), m_mac.home().path());
        environment.remove(QStringLiteral("XDG_DATA_HOME"));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_runtime.path());
        environment.insert(QStringLiteral("GVFS_DISABLE_FUSE"), QStringLiteral("1"));
        environment.insert(QStringLiteral("PYTHONIOENCODING"), QStringLiteral("utf-8:surrogateescape"));
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_mac.home().path());
        process.start(command.first(), command.sliced(1));
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished(30'000)) {
            ADD_FAILURE() << process.errorString().toStdString();
            process.kill();
            process.waitForFinished();
        }
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }

    /// Runs lines of shell with a message bus of their own, on which the desktop's Trash lives.
    QByteArray onDesktop(const QString& lines) const
    {
        return asUser({QStringLiteral("dbus-run-session"), QStringLiteral("--"), QStringLiteral("sh"),
                       QStringLiteral("-e"), QStringLiteral("-c"), lines});
    }

    static std::string reasonMissing(std::initializer_list<const char*> programs)
    {
        for (const char* program : programs) {
            if (QStandardPaths::findExecutable(QString::fromUtf8(program), {}).isEmpty() &&
                !QFile::exists(QString::fromUtf8(program)))
                return std::string(program) + " is not installed";
        }
        return {};
    }

    static std::string reasonNoDesktop()
    {
        return reasonMissing({"gio", "dbus-run-session", "/usr/libexec/gvfsd-trash"});
    }

    /// Puts back what the desktop shows in its Trash with a place below the folder. It shows the
    /// Trashes of all volumes of the machine together; what others threw away stays where it is.
    void restoreAll(const FileURL& folder) const
    {
        const QString lines =
            QStringLiteral("tab=$(printf '\\t'); gio trash --list | while IFS=$tab read -r item place; do "
                           "case \"$place\" in \"%1\"/*) gio trash --restore \"$item\";; esac; done");
        onDesktop(lines.arg(folder.path()));
    }

    /// A file of its own content in a folder of the given path, thrown away.
    void throwAway(const QByteArray& path)
    {
        const QByteArray content = "content of " + path;
        const FileURL file = m_mac.writeFile(path, content);
        m_thrownAway[file.nativePath()] = content;
        trashed(file);
        EXPECT_FALSE(exists(file));
    }

    void expectAllIsBack() const
    {
        for (const auto& [path, content] : m_thrownAway)
            EXPECT_EQ(TestMac::read(FileURL::fromNativePath(path)), content) << path.toStdString();
        EXPECT_EQ(names("files"), std::set<QByteArray>());
        EXPECT_EQ(names("info"), std::set<QByteArray>());
    }

    /// Old places on this machine as the desktop lists them, with its way of writing odd bytes undone.
    std::set<QByteArray> placesListed() const
    {
        std::set<QByteArray> places;
        for (const QByteArray& line : onDesktop(QStringLiteral("gio trash --list")).split('\n')) {
            QByteArray place = line.mid(line.indexOf('\t') + 1);
            for (qsizetype at = place.indexOf("\\x"); at >= 0; at = place.indexOf("\\x", at + 1))
                place.replace(at, 4, QByteArray::fromHex(place.mid(at + 2, 2)));
            if (place.startsWith(m_mac.root().nativePath() + '/'))
                places.insert(place);
        }
        return places;
    }

    std::set<QByteArray> placesThrownAway() const
    {
        std::set<QByteArray> places;
        for (const auto& [path, content] : m_thrownAway)
            places.insert(path);
        return places;
    }

    static QByteArrayList plainNames()
    {
        return {"plain",
                "with blank",
                " blanks at both ends ",
                "100%",
                "%41%2F%00",
                "...",
                "..two dots",
                "a=b;c#d?e&f+g",
                "\"quotes'\"",
                "Path=x",
                "~",
                "[Trash Info]",
                "-rf",
                "*",
                QByteArray(255, 'n')};
    }

    static QByteArrayList oddNames() { return {"new\nline", "tab\tand\rmore", "back\\slash", "Ä 💾 日本"}; }

    static QByteArrayList namesThatAreNoUtf8() { return {"\xFF\xFE", "B\xFCro", "half \xE6\x97"}; }

private:
    QTemporaryDir m_runtime;
    std::map<QByteArray, QByteArray> m_thrownAway;
};

} // namespace

TEST_F(TrashReadersTests, theDesktopShowsWhereAnItemCameFrom)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    throwAway("Users/mira/Documents/100% sure.txt");
    const QByteArray line =
        "trash:///100%25%20sure.txt\t" + m_mac.home().nativePath() + "/Documents/100% sure.txt\n";
    EXPECT_TRUE(onDesktop(QStringLiteral("gio trash --list")).contains(line));
}

TEST_F(TrashReadersTests, theDesktopReadsOddPlacesToTheByte)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    for (const QByteArray& name : plainNames() + oddNames() + namesThatAreNoUtf8())
        throwAway("Users/mira/Documents/odd\n\xFF %/" + name);
    EXPECT_EQ(placesListed(), placesThrownAway());
}

// This tool takes the place that it shows for the one that it restores to, so that it brings back
// what it can show as it is.
TEST_F(TrashReadersTests, theDesktopPutsEachItemBack)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    for (const QByteArray& name : plainNames())
        throwAway("Users/mira/Documents/50 % off/" + name);
    restoreAll(m_mac.root());
    expectAllIsBack();
}

TEST_F(TrashReadersTests, theDesktopPutsItemsOfEqualNameBackWhereEachCameFrom)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    for (const char* folder : {"one", "two", "three"})
        throwAway(QByteArray("Users/mira/") + folder + "/photo.jpg");
    restoreAll(m_mac.root());
    expectAllIsBack();
}

TEST_F(TrashReadersTests, theDesktopPutsFoldersAndLinksBackAsTheyWere)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    const FileURL inside = m_mac.writeFile("Users/mira/Tool.app/Contents/Info.plist", "p");
    const FileURL link = m_mac.home().appendingNative("link");
    ASSERT_EQ(::symlink("nowhere", link.nativePath().constData()), 0);
    trashed(m_mac.home().appendingNative("Tool.app"));
    trashed(link);
    restoreAll(m_mac.root());
    EXPECT_EQ(TestMac::read(inside), "p");
    struct stat status = {};
    ASSERT_EQ(::lstat(link.nativePath().constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

// As a kill leaves it, between the record and the move: whole, or not yet.
TEST_F(TrashReadersTests, theDesktopPassesOverARecordWhoseItemNeverCame)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    throwAway("Users/mira/came");
    m_mac.writeFile("Users/mira/.local/share/Trash/info/early.trashinfo", "");
    m_mac.writeFile("Users/mira/.local/share/Trash/info/late.trashinfo",
                    "[Trash Info]\nPath=" + m_mac.home().nativePath() +
                        "/late\nDeletionDate=2026-03-02T09:05:07\n");
    EXPECT_EQ(placesListed(), placesThrownAway());
}

TEST_F(TrashReadersTests, theDesktopPutsItemsOfAnotherVolumeBack)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    const ImageDrive drive(ImageDrive::Kind::ext4, 16'777'216);
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    const FileURL file = drive.root().appendingNative("pictures/100% sure.jpg");
    ASSERT_EQ(::mkdir(file.deletingLastPathComponent().nativePath().constData(), 0755), 0);
    ASSERT_TRUE(m_mac.fileManager().writeAtomically(file, "picture"));
    const FileURL place = trashed(file);
    EXPECT_EQ(place, drive.root().appendingNative(".Trash-" + user + "/files/100% sure.jpg"));
    restoreAll(drive.root());
    EXPECT_EQ(TestMac::read(file), "picture");
    EXPECT_FALSE(exists(place));
}

// Without this, two of these tests at the same time would empty each other's Trash.
TEST_F(TrashReadersTests, whatOthersThrewAwayStaysInTheirTrash)
{
    if (const std::string reason = reasonNoDesktop(); !reason.empty())
        GTEST_SKIP() << reason;
    const ImageDrive drive(ImageDrive::Kind::ext4, 16'777'216);
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    const FileURL theirs = drive.root().appendingNative("theirs");
    ASSERT_TRUE(m_mac.fileManager().writeAtomically(theirs, "theirs"));
    const FileURL place = trashed(theirs);
    throwAway("Users/mira/ours");
    EXPECT_EQ(placesListed(), placesThrownAway());
    restoreAll(m_mac.root());
    expectAllIsBack();
    EXPECT_TRUE(exists(place));
}

// That program puts names that are no UTF-8 back with a sign of replacement in them.
TEST_F(TrashReadersTests, anotherProgramPutsOddNamesBackToTheByte)
{
    if (const std::string reason = reasonMissing({"trash-restore"}); !reason.empty())
        GTEST_SKIP() << reason;
    for (const QByteArray& name : plainNames() + oddNames()) {
        throwAway("Users/mira/Documents/" + name);
        EXPECT_TRUE(
            asUser({QStringLiteral("trash-restore"), m_mac.home().path()}, "0\n").contains("/Documents/"));
    }
    expectAllIsBack();
}

} // namespace keelbright

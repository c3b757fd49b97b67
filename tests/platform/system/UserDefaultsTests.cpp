#include "KeelbrightCore/platform/system/UserDefaults.h"

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Printing.h"
#include "tests/support/StoredDefaults.h"
#include "tests/support/TestMac.h"

#include <QSettings>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

class UserDefaultsTests : public ::testing::Test
{
protected:
    void SetUp() override { m_configurationHome.unset(); }

    static QString text(const char* value) { return QString::fromUtf8(value); }

    FileURL standardFile() const
    {
        return m_mac.home().appending(text(".config/Keelbright/UserDefaults.ini"));
    }

    void writeStandardFile(const QByteArray& content) const
    {
        m_mac.writeFile("Users/mira/.config/Keelbright/UserDefaults.ini", content);
    }

    testing::StoredDefaults stored() const { return testing::StoredDefaults(standardFile()); }

    testing::TestMac m_mac;
    testing::EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
};

const QByteArray json = R"({"id":"0B6E","url":"file:///Volumes/Backup%20;,=","note":"ü \"q\" \\ 🙂"})";

} // namespace

TEST_F(UserDefaultsTests, aRenamedKeyHoldsTheSameDataUnderItsNewNameOnly)
{
    stored().setData(text("kb.selectedDestination"), json);
    UserDefaults::standard().renameKey(text("kb.selectedDestination"), text("kb.unsavedDestination"));
    UserDefaults::standard().renameKey(text("kb.unsavedDestination"), text("kb.unsavedDestination"));
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), std::nullopt);
    EXPECT_EQ(defaults.dataForKey(text("kb.unsavedDestination")), json);
}

TEST_F(UserDefaultsTests, anUnsetKeyHoldsNothing)
{
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.dataForKey(text("kb.lastReport")), std::nullopt);
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.enabledRecommended")), std::nullopt);
}

TEST_F(UserDefaultsTests, readingLeavesNoFileBehind)
{
    EXPECT_EQ(UserDefaults::standard().dataForKey(text("kb.lastReport")), std::nullopt);
    EXPECT_FALSE(m_mac.fileManager().fileExists(standardFile().deletingLastPathComponent()).exists);
}

TEST_F(UserDefaultsTests, dataIsReadToTheByte)
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes.append(static_cast<char>(value));
    stored().setData(text("kb.selectedDestination"), json);
    stored().setData(text("kb.bytes"), bytes);
    stored().setData(text("kb.empty"), QByteArray(""));
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), json);
    EXPECT_EQ(defaults.dataForKey(text("kb.bytes")), bytes);
    EXPECT_EQ(defaults.dataForKey(text("kb.empty")), QByteArray(""));
}

TEST_F(UserDefaultsTests, aListIsReadElementByElement)
{
    const QStringList names = {text("Desktop"), text("Bilder, Büro; \"x\""), text(""), text("@home")};
    stored().setStringArray(text("kb.enabledRecommended"), names);
    EXPECT_EQ(UserDefaults::standard().stringArrayForKey(text("kb.enabledRecommended")), names);
}

TEST_F(UserDefaultsTests, aListOfOneElementAndAnEmptyOneAreListsToo)
{
    writeStandardFile("[General]\nkb.one=Documents\nkb.none=@Invalid()\n");
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.one")), QStringList{text("Documents")});
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.none")), QStringList());
}

TEST_F(UserDefaultsTests, aValueOfTheOtherKindIsNothing)
{
    stored().setData(text("kb.data"), json);
    stored().setStringArray(text("kb.list"), {text("a"), text("b")});
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.data")), std::nullopt);
    EXPECT_EQ(defaults.dataForKey(text("kb.list")), std::nullopt);
}

TEST_F(UserDefaultsTests, aRemovedKeyIsGoneAndTheOthersStay)
{
    stored().setData(text("kb.selectedDestination"), json);
    stored().setData(text("kb.lastReport"), json);
    {
        UserDefaults defaults = UserDefaults::standard();
        defaults.removeObjectForKey(text("kb.selectedDestination"));
        EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), std::nullopt);
    }
    const UserDefaults again = UserDefaults::standard();
    EXPECT_EQ(again.dataForKey(text("kb.selectedDestination")), std::nullopt);
    EXPECT_EQ(again.dataForKey(text("kb.lastReport")), json);
    EXPECT_FALSE(testing::TestMac::read(standardFile()).contains("selectedDestination"));
}

TEST_F(UserDefaultsTests, theStandardFileLiesBelowTheHome)
{
    writeStandardFile("[General]\nkb.lastReport=@ByteArray(x)\n");
    EXPECT_EQ(UserDefaults::standard().dataForKey(text("kb.lastReport")), QByteArray("x"));
}

TEST_F(UserDefaultsTests, theConfigurationFolderOfTheEnvironmentIsHonoured)
{
    writeStandardFile("[General]\nkb.lastReport=@ByteArray(x)\n");
    m_mac.writeFile("elsewhere/Keelbright/UserDefaults.ini", "[General]\nkb.lastReport=@ByteArray(y)\n");
    m_configurationHome.set(m_mac.root().appending(text("elsewhere")).nativePath());
    EXPECT_EQ(UserDefaults::standard().dataForKey(text("kb.lastReport")), QByteArray("y"));
}

TEST_F(UserDefaultsTests, aRelativeConfigurationFolderIsIgnored)
{
    writeStandardFile("[General]\nkb.lastReport=@ByteArray(x)\n");
    m_configurationHome.set("relative");
    EXPECT_EQ(UserDefaults::standard().dataForKey(text("kb.lastReport")), QByteArray("x"));
}

TEST_F(UserDefaultsTests, aDamagedFileHoldsNothing)
{
    writeStandardFile(QByteArray("\x00\xFF[[[\n=\nkb.lastReport\n\x01", 24));
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), std::nullopt);
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.enabledRecommended")), std::nullopt);
}

} // namespace keelbright

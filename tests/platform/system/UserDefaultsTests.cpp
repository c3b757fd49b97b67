#include "KeelbrightCore/platform/system/UserDefaults.h"

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Printing.h"
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

    testing::TestMac m_mac;
    testing::EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
};

const QByteArray json = R"({"id":"0B6E","url":"file:///Volumes/Backup%20;,=","note":"ü \"q\" \\ 🙂"})";

} // namespace

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

TEST_F(UserDefaultsTests, dataIsKeptToTheByteAcrossStarts)
{
    QByteArray bytes;
    for (int value = 0; value < 256; ++value)
        bytes.append(static_cast<char>(value));
    {
        UserDefaults defaults = UserDefaults::standard();
        defaults.setData(text("kb.selectedDestination"), json);
        defaults.setData(text("kb.bytes"), bytes);
        defaults.setData(text("kb.empty"), QByteArray(""));
    }
    const UserDefaults again = UserDefaults::standard();
    EXPECT_EQ(again.dataForKey(text("kb.selectedDestination")), json);
    EXPECT_EQ(again.dataForKey(text("kb.bytes")), bytes);
    EXPECT_EQ(again.dataForKey(text("kb.empty")), QByteArray(""));
}

TEST_F(UserDefaultsTests, listsAreKeptAcrossStarts)
{
    const QStringList names = {text("Desktop"), text("Bilder, Büro; \"x\""), text(""), text("@home")};
    {
        UserDefaults defaults = UserDefaults::standard();
        defaults.setStringArray(text("kb.enabledRecommended"), names);
        defaults.setStringArray(text("kb.one"), {text("Documents")});
    }
    const UserDefaults again = UserDefaults::standard();
    EXPECT_EQ(again.stringArrayForKey(text("kb.enabledRecommended")), names);
    EXPECT_EQ(again.stringArrayForKey(text("kb.one")), QStringList{text("Documents")});
}

TEST_F(UserDefaultsTests, anEmptyListIsNotAnUnsetKey)
{
    {
        UserDefaults defaults = UserDefaults::standard();
        defaults.setStringArray(text("kb.enabledRecommended"), {});
        EXPECT_EQ(defaults.stringArrayForKey(text("kb.enabledRecommended")), QStringList());
    }
    EXPECT_EQ(UserDefaults::standard().stringArrayForKey(text("kb.enabledRecommended")), QStringList());
}

TEST_F(UserDefaultsTests, aValueOfTheOtherKindIsNothing)
{
    UserDefaults defaults = UserDefaults::standard();
    defaults.setData(text("kb.data"), json);
    defaults.setStringArray(text("kb.list"), {text("a"), text("b")});
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.data")), std::nullopt);
    EXPECT_EQ(defaults.dataForKey(text("kb.list")), std::nullopt);
}

TEST_F(UserDefaultsTests, aRemovedKeyIsGoneAndTheOthersStay)
{
    {
        UserDefaults defaults = UserDefaults::standard();
        defaults.setData(text("kb.selectedDestination"), json);
        defaults.setData(text("kb.lastReport"), json);
        defaults.removeObjectForKey(text("kb.selectedDestination"));
        EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), std::nullopt);
    }
    const UserDefaults again = UserDefaults::standard();
    EXPECT_EQ(again.dataForKey(text("kb.selectedDestination")), std::nullopt);
    EXPECT_EQ(again.dataForKey(text("kb.lastReport")), json);
}

TEST_F(UserDefaultsTests, theStandardFileLiesBelowTheHome)
{
    UserDefaults defaults = UserDefaults::standard();
    defaults.setData(text("kb.lastReport"), "x");
    EXPECT_TRUE(testing::TestMac::read(standardFile()).contains("kb.lastReport=@ByteArray(x)"));
}

TEST_F(UserDefaultsTests, theConfigurationFolderOfTheEnvironmentIsHonoured)
{
    const FileURL folder = m_mac.root().appending(text("elsewhere"));
    m_configurationHome.set(folder.nativePath());
    UserDefaults::standard().setData(text("kb.lastReport"), "x");
    EXPECT_TRUE(m_mac.fileManager().fileExists(folder.appending(text("Keelbright/UserDefaults.ini"))).exists);
    EXPECT_FALSE(m_mac.fileManager().fileExists(standardFile()).exists);
}

TEST_F(UserDefaultsTests, aRelativeConfigurationFolderIsIgnored)
{
    m_configurationHome.set("relative");
    UserDefaults::standard().setData(text("kb.lastReport"), "x");
    EXPECT_TRUE(m_mac.fileManager().fileExists(standardFile()).exists);
}

TEST_F(UserDefaultsTests, aDamagedFileHoldsNothing)
{
    m_mac.writeFile("Users/mira/.config/Keelbright/UserDefaults.ini",
                    QByteArray("\x00\xFF[[[\n=\nkb.lastReport\n\x01", 24));
    const UserDefaults defaults = UserDefaults::standard();
    EXPECT_EQ(defaults.dataForKey(text("kb.selectedDestination")), std::nullopt);
    EXPECT_EQ(defaults.stringArrayForKey(text("kb.enabledRecommended")), std::nullopt);
}

} // namespace keelbright

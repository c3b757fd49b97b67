#include "tests/support/TestMac.h"

#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

#include <QStandardPaths>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

using testing::EnvironmentVariable;
using testing::TestMac;

TEST(TestMac, standsForTheUsersOwnFoldersWhateverTheEnvironmentSays)
{
    const EnvironmentVariable configurationHome("XDG_CONFIG_HOME");
    const EnvironmentVariable dataHome("XDG_DATA_HOME");
    configurationHome.set("/elsewhere/configuration");
    dataHome.set("/elsewhere/data");
    const TestMac mac;
    const QString home = mac.home().path();
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
              home + QStringLiteral("/.config"));
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
              home + QStringLiteral("/.local/share"));
    mac.writeFile("Users/mira/.config/Keelbright/UserDefaults.ini", "[General]\nkey=value\n");
    EXPECT_EQ(UserDefaults::standard().stringArrayForKey(QStringLiteral("key")),
              QStringList{QStringLiteral("value")});
}

TEST(TestMac, putsTheEnvironmentBack)
{
    const EnvironmentVariable timeZone("TZ");
    const EnvironmentVariable configurationHome("XDG_CONFIG_HOME");
    const EnvironmentVariable dataHome("XDG_DATA_HOME");
    const EnvironmentVariable shell("SHELL");
    timeZone.set("Asia/Kathmandu");
    configurationHome.set("/before");
    dataHome.unset();
    shell.unset(); // as where a service starts the tests
    {
        TestMac mac;
        EXPECT_EQ(qgetenv("SHELL"), "/bin/zsh");
        mac.setTimeZone("America/New_York");
    }
    EXPECT_EQ(qgetenv("TZ"), "Asia/Kathmandu");
    EXPECT_EQ(qgetenv("XDG_CONFIG_HOME"), "/before");
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_DATA_HOME"));
    EXPECT_FALSE(qEnvironmentVariableIsSet("SHELL"));
    const QDateTime noon(QDate(2026, 3, 2), QTime(12, 0), utcZone);
    EXPECT_EQ(noon.toLocalTime().offsetFromUtc(), 20'700) << "the clock knows the zone too";
}

} // namespace
} // namespace keelbright

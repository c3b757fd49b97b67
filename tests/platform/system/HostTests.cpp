#include "KeelbrightCore/platform/system/Host.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QSysInfo>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

class HostTests : public ::testing::Test
{
protected:
    void machineInfo(const QByteArray& content) { m_mac.writeFile("etc/machine-info", content); }

    static std::string name() { return Host::localizedName().value_or(QString()).toStdString(); }

    testing::TestMac m_mac;
};

} // namespace

TEST_F(HostTests, thePrettyNameIsTakenFirst)
{
    machineInfo("# who is who\nICON_NAME=computer\nPRETTY_HOSTNAME=\"Mira's Mac\"\nCHASSIS=laptop\n");
    EXPECT_EQ(name(), "Mira's Mac");
}

TEST_F(HostTests, shellQuotingIsUndone)
{
    machineInfo("PRETTY_HOSTNAME=plain");
    EXPECT_EQ(name(), "plain");
    machineInfo("PRETTY_HOSTNAME='single \\ \"quotes\"'\n");
    EXPECT_EQ(name(), "single \\ \"quotes\"");
    machineInfo("PRETTY_HOSTNAME=\"a \\\"b\\\" \\$c \\\\ \\`d\\` \\e\"\n");
    EXPECT_EQ(name(), "a \"b\" $c \\ `d` \\e");
    machineInfo("PRETTY_HOSTNAME=Mira\\'s\\ Mac\n");
    EXPECT_EQ(name(), "Mira's Mac");
    machineInfo("PRETTY_HOSTNAME='Mira'\"'\"'s Mac'\n");
    EXPECT_EQ(name(), "Mira's Mac");
}

TEST_F(HostTests, theNameIsUtf8AndUndecodableBytesAreReplaced)
{
    machineInfo("PRETTY_HOSTNAME=\"Büro 💾\"\n");
    EXPECT_EQ(name(), "Büro 💾");
    machineInfo("PRETTY_HOSTNAME=\"B\xFCro\"\n");
    EXPECT_EQ(name(), "B\uFFFDro");
}

TEST_F(HostTests, theLastAssignmentHolds)
{
    machineInfo("PRETTY_HOSTNAME=first\nPRETTY_HOSTNAME=second\nXPRETTY_HOSTNAME=third\n");
    EXPECT_EQ(name(), "second");
}

TEST_F(HostTests, theHostNameStandsInForAMissingOrEmptyOrBrokenPrettyName)
{
    const std::string hostName = QSysInfo::machineHostName().toStdString();
    ASSERT_FALSE(hostName.empty());
    EXPECT_EQ(name(), hostName);
    for (const char* content :
         {"", "CHASSIS=laptop\n", "PRETTY_HOSTNAME=\n", "PRETTY_HOSTNAME=\"\"\n", "PRETTY_HOSTNAME=\"  \"\n",
          "PRETTY_HOSTNAME=\"open\n", "# PRETTY_HOSTNAME=comment\n"}) {
        machineInfo(content);
        EXPECT_EQ(name(), hostName) << content;
    }
}

TEST_F(HostTests, aFolderInThePlaceOfTheFileIsIgnored)
{
    m_mac.makeFolder("etc/machine-info");
    EXPECT_EQ(name(), QSysInfo::machineHostName().toStdString());
}

TEST_F(HostTests, theSystemVersionIsThePrettyNameOfTheRelease)
{
    m_mac.writeFile("etc/os-release", "NAME=\"Debian GNU/Linux\"\n"
                                      "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nVERSION_ID=\"12\"\n");
    EXPECT_EQ(Host::operatingSystemVersionString(), QStringLiteral("Debian GNU/Linux 12 (bookworm)"));
}

TEST_F(HostTests, theVendorsCopyOfTheReleaseStandsInForAMissingOne)
{
    m_mac.writeFile("usr/lib/os-release", "PRETTY_NAME='Keel OS 7'\n");
    EXPECT_EQ(Host::operatingSystemVersionString(), QStringLiteral("Keel OS 7"));
}

TEST_F(HostTests, withoutAReleaseFileTheKernelIsNamed)
{
    EXPECT_EQ(Host::operatingSystemVersionString(),
              QSysInfo::kernelType().replace(0, 1, QStringLiteral("L")) + u' ' + QSysInfo::kernelVersion());
}

TEST_F(HostTests, anEnvironmentVariableIsAbsentEmptyOrSet)
{
    constexpr auto variable = "KEELBRIGHT_TEST_VARIABLE";
    qunsetenv(variable);
    EXPECT_EQ(Host::environment(variable), std::nullopt);
    qputenv(variable, "");
    EXPECT_EQ(Host::environment(variable), QString(QLatin1String("")));
    qputenv(variable, "/bin/zsh ü");
    EXPECT_EQ(Host::environment(variable), QStringLiteral("/bin/zsh ü"));
    qunsetenv(variable);
}

} // namespace keelbright

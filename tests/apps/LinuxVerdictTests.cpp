#include "KeelbrightCore/apps/AppScanner.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class LinuxVerdictTests : public ::testing::Test
{
protected:
    LinuxVerdictTests() { language.set("de_DE.UTF-8"); }

    int argc = 1;
    char programName[5] = "test";
    char* argv[1] = {programName};
    QCoreApplication application{argc, argv};
    EnvironmentVariable language{"LC_ALL"};
    TestLinux machine;
    MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::gnome, MadeUpLinux::Language::german);
};

} // namespace

TEST_F(LinuxVerdictTests, theScanJudgesThemLikeAnyApplication)
{
    home.populate();
    QStringList verdicts;
    for (const AppInfo& app : AppScanner::scan(machine.clock()).result())
        verdicts.append(app.name + u": "_s + app.usageDescription);
    verdicts.sort();
    EXPECT_EQ(verdicts,
              (QStringList{u"Dateien: Used 84 times — last opened 10 days ago."_s,
                           u"Firefox: Used 441 times — last opened today."_s,
                           u"Krita: Opened 0 times — usage timing unknown."_s,
                           u"Maps: Opened 0 times — usage timing unknown."_s,
                           u"Tide Table: Used heavily before (161 times, ~5/mo). Dormant for 6 months."_s}));
}

} // namespace keelbright::testing

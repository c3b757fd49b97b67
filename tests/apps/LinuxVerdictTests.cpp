#include "KeelbrightCore/apps/AppScanner.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// What the application manager says of the use of each application.
class LinuxVerdictTests : public ::testing::Test
{
protected:
    using Desktop = MadeUpLinux::Desktop;
    using Language = MadeUpLinux::Language;

    [[nodiscard]] QStringList verdicts(Desktop desktop, Language language) const
    {
        locale.set(language == Language::german ? "de_DE.UTF-8" : "en_US.UTF-8");
        machine.madeUp(desktop, language).populate();
        QStringList lines;
        for (const AppInfo& app : AppScanner::scan(machine.clock()).result())
            lines.append(app.name + u": "_s + app.usageDescription);
        lines.sort();
        return lines;
    }

    int argc = 1;
    char programName[5] = "test";
    char* argv[1] = {programName};
    QCoreApplication application{argc, argv};
    TestLinux machine;
    EnvironmentVariable locale{"LC_ALL"};
};

} // namespace

TEST_F(LinuxVerdictTests, onGnomeTheTimeInFocusIsWhatThereIs)
{
    EXPECT_EQ(verdicts(Desktop::gnome, Language::english),
              (QStringList{u"Files: Used 84 times — last opened 10 days ago."_s,
                           u"Firefox: Used 441 times — last opened today."_s,
                           u"Krita: Opened 0 times — usage timing unknown."_s,
                           u"Maps: Opened 0 times — usage timing unknown."_s,
                           u"Tide Table: Used heavily before (161 times, ~5/mo). Dormant for 6 months."_s}));
}

TEST_F(LinuxVerdictTests, theNamesAreGermanInAGermanSession)
{
    EXPECT_EQ(verdicts(Desktop::gnome, Language::german),
              (QStringList{u"Dateien: Used 84 times — last opened 10 days ago."_s,
                           u"Firefox: Used 441 times — last opened today."_s,
                           u"Krita: Opened 0 times — usage timing unknown."_s,
                           u"Maps: Opened 0 times — usage timing unknown."_s,
                           u"Tide Table: Used heavily before (161 times, ~5/mo). Dormant for 6 months."_s}));
}

TEST_F(LinuxVerdictTests, onPlasmaTheStartsFromItsMenusAreCounted)
{
    EXPECT_EQ(verdicts(Desktop::plasma, Language::german),
              (QStringList{u"Dolphin: Used 25 times — last opened 3 days ago."_s,
                           u"Firefox: Used 60 times — last opened 1 day ago."_s,
                           u"Krita: Opened 0 times — usage timing unknown."_s,
                           u"Maps: Opened 0 times — usage timing unknown."_s,
                           u"Tide Table: Used regularly (50 times total). Dormant for 6 months."_s}));
}

TEST_F(LinuxVerdictTests, besideABareWindowManagerOnlyOpenedDocumentsTellOfUse)
{
    EXPECT_EQ(verdicts(Desktop::windowManager, Language::german),
              (QStringList{u"Dokumentenbetrachter: Used 11 times — last opened 5 days ago."_s,
                           u"Firefox: Opened 0 times — usage timing unknown."_s,
                           u"GNU Image Manipulation Program: Opened 5 times total. Last used 40 days ago."_s,
                           u"Krita: Opened 0 times — usage timing unknown."_s,
                           u"Maps: Opened 0 times — usage timing unknown."_s,
                           u"Tide Table: Opened 0 times — usage timing unknown."_s}));
}

} // namespace keelbright::testing

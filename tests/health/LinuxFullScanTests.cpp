#include "KeelbrightCore/health/FullScanService.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The full scan of a home that is no Mac's.
class LinuxFullScanTests : public ::testing::Test
{
protected:
    LinuxFullScanTests() { language.set("C.UTF-8"); }

    ~LinuxFullScanTests() override { waitForBackgroundWork(); }

    [[nodiscard]] FullScanReport scan() const
    {
        return FullScanService::scan(std::nullopt, {}, machine.clock()).result();
    }

    /// "title: detail" of all findings but the one about the disk, which is the real one's.
    static QStringList linesOf(const FullScanReport& report)
    {
        QStringList lines;
        for (const ScanFinding& finding : report.findings) {
            if (finding.category != ScanFinding::Category::storage)
                lines.append(finding.title + u": "_s + finding.detail);
        }
        return lines;
    }

    EnvironmentVariable language{"LC_ALL"};
    TestLinux machine;
};

} // namespace

TEST_F(LinuxFullScanTests, findsTheJunkAndTheApplicationsOfTheDesktop)
{
    const MadeUpLinux home = machine.madeUp(MadeUpLinux::Desktop::plasma);
    home.addUserFolders();
    home.addCaches();
    home.addBrowsers();
    home.addDeveloperCaches();
    home.addLogs();
    home.addTrash();
    home.addApplications();
    const FullScanReport report = scan();
    const QString unused = u": Opened 0 times — usage timing unknown."_s;
    EXPECT_EQ(linesOf(report), (QStringList{
                                   u"No backup on record: Your files have never been backed up."_s,
                                   u"User Caches: 6 items taking up 3.8 MB"_s,
                                   u"Browser Caches: 6 items taking up 900 KB"_s,
                                   u"Xcode & Simulators: 6 items taking up 270 KB"_s,
                                   u"Log Files: 5 items taking up 83 KB"_s,
                                   u"Trash: 2 items taking up 60 KB"_s,
                                   u"Krita"_s + unused,
                                   u"Dolphin"_s + unused,
                                   u"Maps"_s + unused,
                                   u"Firefox"_s + unused,
                               }));
    EXPECT_EQ(report.totalReclaimableBytes, 5'133'000);
    ASSERT_TRUE(report.healthScore);
    // Everything in the cache folder and what developing leaves beside it, but no Trash and no state folder.
    EXPECT_EQ(report.healthScore->junkEstimateBytes, 3'820'000 + 300'000 + 270'000 + 70'000);
}

TEST_F(LinuxFullScanTests, anEmptyHomeHasNothingButItsBackupToReport)
{
    EXPECT_EQ(linesOf(scan()), QStringList{u"No backup on record: Your files have never been backed up."_s});
}

} // namespace keelbright::testing

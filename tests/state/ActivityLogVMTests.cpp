#include "Keelbright/state/ActivityLogVM.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QString csvHeader = u"Timestamp,Type,Title,Detail,Items,Size"_s;

class ActivityLogVMTest : public ::testing::Test
{
protected:
    [[nodiscard]] ActivityEntry entry(const QString& title) const
    {
        return {
            .id = QUuid::createUuid(),
            .timestamp = QDateTime(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone),
            .kind = ActivityEntry::Kind::backup,
            .title = title,
            .detail = u"Explained"_s,
            .bytesAffected = 0,
            .itemCount = 1,
        };
    }

    [[nodiscard]] FileURL csv() const { return mac.home().appending(u"log.csv"_s); }

    TestMac mac;
    ActivityStore store{mac.fileManager().applicationSupportDirectory()};
    FakeFileChooser files;
    ActivityLogVM model{store, files};
};

} // namespace

TEST_F(ActivityLogVMTest, showsWhatTheLogHeldWhenItWasLoaded)
{
    const ActivityEntry first = entry(u"First"_s);
    const ActivityEntry second = entry(u"Second"_s);
    store.append(first);
    EXPECT_TRUE(model.entries().isEmpty());
    model.load();
    EXPECT_EQ(model.entries(), QList{first});
    store.append(second);
    EXPECT_EQ(model.entries(), QList{first});
    model.load();
    EXPECT_EQ(model.entries(), (QList{second, first}));
}

TEST_F(ActivityLogVMTest, clearingEmptiesTheLogOnDiskAndHere)
{
    store.append(entry(u"First"_s));
    model.load();
    model.clear();
    EXPECT_TRUE(model.entries().isEmpty());
    EXPECT_TRUE(store.load().isEmpty());
}

TEST_F(ActivityLogVMTest, theExportAsksForAPlaceAndWritesTheLogOnDisk)
{
    store.append(entry(u"Saved, at last"_s));
    files.willChoose(csv());
    model.exportCSV();
    ASSERT_EQ(files.saveRequests.size(), 1);
    EXPECT_EQ(files.saveRequests.first().title, u"Export log as CSV"_s);
    EXPECT_EQ(files.saveRequests.first().prompt, u"Save"_s);
    EXPECT_EQ(files.saveRequests.first().name, u"Keelbright-Activity.csv"_s);
    EXPECT_EQ(files.saveRequests.first().extension, u"csv"_s);
    EXPECT_EQ(QString::fromUtf8(TestMac::read(csv())),
              csvHeader + u"\n2026-03-02T09:05:07Z,Backup,Saved; at last,Explained,1,"_s);
}

TEST_F(ActivityLogVMTest, aDismissedChooserAndAPlaceThatCannotBeWrittenLeaveNoFile)
{
    files.willBeDismissed();
    model.exportCSV();
    const FileURL nowhere = mac.home().appending(u"no such folder/log.csv"_s);
    files.willChoose(nowhere);
    model.exportCSV();
    EXPECT_FALSE(mac.fileManager().fileExists(nowhere).exists);
}

TEST_F(ActivityLogVMTest, theTextIsThatOfTheMomentOfTheExportAndOutlivesTheModel)
{
    store.append(entry(u"Before"_s));
    files.willStayOpen();
    {
        ActivityLogVM shortLived(store, files);
        shortLived.exportCSV();
    }
    store.append(entry(u"After"_s));
    files.confirm(csv());
    EXPECT_EQ(QString::fromUtf8(TestMac::read(csv())),
              csvHeader + u"\n2026-03-02T09:05:07Z,Backup,Before,Explained,1,"_s);
}

} // namespace keelbright::testing

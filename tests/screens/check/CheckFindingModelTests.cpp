#include "Keelbright/screens/check/CheckFindingModel.h"

#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/FakeCopyCheck.h"

#include <QAbstractItemModelTester>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using CheckFindingModelTests = ScreenTestCase;

} // namespace

TEST_F(CheckFindingModelTests, theModelIsSound)
{
    CheckFindingModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model.rowCount(), 0);
    CheckReport report = sampleCheck(10);
    addDamaged(report, u"a"_s);
    addUnreadable(report, u"b"_s);
    model.setReport(report);
    EXPECT_EQ(model.rowCount(), 2);
    model.setReport(sampleCheck(1));
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(CheckFindingModelTests, aRowHasPlaceReasonAndTheWayToTheFile)
{
    CheckReport report = sampleCheck(10);
    addDamaged(report, u"Pictures/a.jpg"_s);
    addUnreadable(report, u"Pictures/b.jpg"_s);
    report.add(CheckFinding{.verdict = CopyVerdict::originalUnreadable,
                            .item = FileURL::fromPath(u"/Users/mira/Music"_s),
                            .error = FileError::fromCode(FileError::Operation::opened, u"Music"_s, EACCES)});
    CheckFindingModel model;
    model.setReport(report);
    const ListRow damaged = model.rowAt(0);
    EXPECT_EQ(damaged.title, u"Pictures/a.jpg"_s);
    EXPECT_EQ(damaged.detail, u"It differs from its original, which has not changed since the backup."_s);
    EXPECT_EQ(damaged.symbolColor, Role::red);
    ASSERT_EQ(damaged.actions.size(), 1);
    EXPECT_EQ(damaged.actions.first().id, RowActionId::reveal);
    EXPECT_EQ(damaged.actions.first().name, u"Show in the file manager"_s);
    EXPECT_EQ(model.rowAt(1).detail, u"“b.jpg” could not be read: the drive reported an error."_s);
    EXPECT_EQ(model.rowAt(2).title, u"/Users/mira/Music"_s);
    EXPECT_EQ(model.rowAt(2).symbolColor, Role::orange) << "no fault of a copy";
    EXPECT_EQ(model.itemAt(0).path(), report.personalFiles.path() + u"/Pictures/a.jpg"_s);
}

TEST_F(CheckFindingModelTests, aHundredThousandRowsAreThereAtOnce)
{
    CheckReport report = sampleCheck(100'000);
    for (int i = 0; i < 100'000; ++i)
        addUnreadable(report, u"IMG_%1.jpg"_s.arg(i));
    CheckFindingModel model;
    model.setReport(report);
    EXPECT_EQ(model.rowCount(), 100'000);
    EXPECT_EQ(model.titleAt(99'999), u"IMG_99999.jpg"_s);
}

} // namespace keelbright::testing

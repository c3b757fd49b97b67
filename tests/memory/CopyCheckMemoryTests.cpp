// Checks of the copies during which memory runs out, at every single `operator new`.

#include "KeelbrightCore/check/CopyReadAhead.h"
#include "tests/check/CheckTestCase.h"
#include "tests/memory/FailingAllocations.h"
#include "tests/support/BackgroundWork.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace keelbright::testing {
namespace {

using Kind = CopyPiece::Kind;

class CopyCheckMemoryTest : public CheckTestCase
{
protected:
    CopyCheckMemoryTest()
    {
        for (const CheckedItem& item : items)
            write(item.path(), contentOf(item));
        backUp();
        overwrite(copy("Folder/Deeper/damaged"), 500, "damage");
        std::ignore = checkInBackground().result(); // what is made once is there: its two threads
        waitForBackgroundWork();
    }

    ~CopyCheckMemoryTest() override { waitForBackgroundWork(); }

    [[nodiscard]] static QByteArray contentOf(const CheckedItem& item)
    {
        return content(item.name == "large" ? 3'000'000 : 1'000);
    }

    [[nodiscard]] QFuture<CheckReport> checkInBackground() const
    {
        return CopyCheck::start(job(), std::make_shared<CheckProgress>(), std::make_shared<Cancellation>());
    }

    /// Checks while one allocation fails; false where the check has ended without getting to it.
    bool checkWithout(long number)
    {
        QFuture<CheckReport> future;
        long failed = 0;
        {
            const FailingAllocations failing(number, 1);
            future = checkInBackground();
            waitForBackgroundWork();
            failed = failing.failed();
        }
        SCOPED_TRACE("allocation " + std::to_string(number));
        if (!future.isFinished() || future.resultCount() == 0) {
            ADD_FAILURE() << "who asked for the check waits for ever";
            return false;
        }
        expectNothingInvented(future.result());
        return failed > 0;
    }

    static void expectNothingInvented(const CheckReport& report)
    {
        if (report.end == CheckReport::End::failed) {
            ASSERT_TRUE(report.error.has_value());
            EXPECT_EQ(report.error->code, ENOMEM);
            return;
        }
        EXPECT_EQ(report.end, CheckReport::End::complete);
        EXPECT_LE(report.count(CopyVerdict::same), 3) << "the damaged copy is not sound";
        for (const CheckFinding& finding : report.findings) {
            if (finding.verdict == CopyVerdict::differs)
                EXPECT_EQ(finding.item.nativeLastPathComponent(), "damaged");
            else
                EXPECT_EQ(finding.error.value_or(FileError()).code, ENOMEM);
        }
    }

    /// What is read of the next item; the code where it could not be read.
    [[nodiscard]] static std::expected<QByteArray, int> readNext(CopyReadAhead& pieces)
    {
        const CopyPiece begin = pieces.next();
        EXPECT_EQ(begin.kind, Kind::begin);
        if (begin.code != 0)
            return std::unexpected(begin.code);
        QByteArray bytes;
        for (;;) {
            CopyPiece piece = pieces.next();
            if (piece.kind == Kind::end)
                return piece.code == 0 ? std::expected<QByteArray, int>(bytes) : std::unexpected(piece.code);
            EXPECT_EQ(piece.kind, Kind::data);
            bytes.append(piece.buffer->data(), piece.size);
            pieces.giveBack(std::move(piece.buffer));
        }
    }

    const QList<CheckedItem> items{{.folder = {}, .name = "large"},
                                   {.folder = "Folder", .name = "b"},
                                   {.folder = "Folder/Deeper", .name = "damaged"},
                                   {.folder = "Other", .name = "c"}};
};

} // namespace

TEST_F(CopyCheckMemoryTest, aCheckEndsWhicheverAllocationFails)
{
    long allocations = 0;
    while (checkWithout(allocations) && !HasFailure())
        ++allocations;
    EXPECT_GT(allocations, 20);
    RecordProperty("allocations", static_cast<int>(allocations));
    EXPECT_EQ(counts(check()), (Counts{{"same", 3}, {"differs", 1}}));
}

TEST_F(CopyCheckMemoryTest, anItemThatFindsNoMemoryIsTheOnlyOneThatIsNotRead)
{
    long allocations = 0;
    for (bool hasFailed = true; hasFailed && !HasFailure(); ++allocations) {
        SCOPED_TRACE("allocation " + std::to_string(allocations));
        const auto tree = ReadOnlyTree::open(documents);
        ASSERT_TRUE(tree.has_value());
        const FailingAllocations failing(allocations, 1);
        CopyReadAhead pieces(**tree, items); // this thread is spared, the one that reads is not
        qsizetype unread = 0;
        for (const CheckedItem& item : items) {
            const auto bytes = readNext(pieces);
            if (bytes)
                EXPECT_TRUE(*bytes == contentOf(item)) << item.path().constData();
            else
                EXPECT_EQ(bytes.error(), ENOMEM);
            unread += bytes ? 0 : 1;
        }
        EXPECT_EQ(unread, failing.failed());
        hasFailed = failing.failed() > 0;
    }
    EXPECT_GT(allocations, 2);
}

} // namespace keelbright::testing

#include "KeelbrightCore/backup/SourceCopy.h"

#include "tests/backup/PendingItemsTest.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gmock/gmock.h>
#include <new>

namespace keelbright {
namespace {

using testing::CopyRecord;
using ::testing::IsEmpty;
using testing::Preparing;
using testing::RecordedCopy;
using ::testing::UnorderedElementsAreArray;

/// A drive without room for a further folder while copies wait for their names.
class CrowdedDrive : public testing::FakeCopyDestination
{
public:
    CrowdedDrive(Preparing preparing, const CopyRecord& record, int code)
        : FakeCopyDestination(1'000, std::move(preparing))
        , m_record(record)
        , m_code(code)
    {}

    std::expected<void, FileError> enterFolder(QByteArrayView folder, const DirectoryEnumerator*) override
    {
        if (m_planned == m_record.names("published").size())
            return {};
        ++refused;
        return failure(FileError::Operation::created, folder, m_code);
    }

    std::expected<PlannedCopy, FileError> plan(const DirectoryEnumerator& item) override
    {
        ++m_planned;
        return FakeCopyDestination::plan(item);
    }

    int refused = 0;

private:
    const CopyRecord& m_record;
    int m_code;
    qsizetype m_planned = 0;
};

/// A drive that finds no memory, a few times, when it is asked whether a folder is one of its own.
class ForgetfulDrive : public testing::FakeCopyDestination
{
public:
    using FakeCopyDestination::FakeCopyDestination;

    bool isOwnFolder(const DirectoryEnumerator& item) const override
    {
        if (item.name() != "b" && item.name() != "own")
            return false;
        if (++asked % 3 != 0)
            throw std::bad_alloc();
        return item.name() == "own";
    }

    mutable int asked = 0;
};

class SourceCopyMemoryTest : public testing::PendingItemsTest
{
protected:
    testing::TestMac mac;
};

class SourceCopyTest : public SourceCopyMemoryTest, public ::testing::WithParamInterface<int>
{};

TEST_P(SourceCopyTest, makesAFolderOnceMoreWhenThePendingCopiesHaveGivenTheirRoomBack)
{
    QByteArrayList files;
    for (const QByteArray folder : {"a", "b", "c"}) {
        for (const QByteArray file : {"1", "2", "3"}) {
            files.append(folder + file);
            mac.writeFile("Documents/" + folder + '/' + files.last(), "x");
        }
    }
    const FileURL root = mac.root().appendingNative("Documents");
    const auto items = DirectoryEnumerator::open(root, {});
    CrowdedDrive drive(preparing(), record, GetParam());
    onRunThread([&] { SourceCopy(**items, drive, root, "Personal Files/Documents", *task).run(); });
    EXPECT_GT(drive.refused, 0);
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_THAT(record.names("published"), UnorderedElementsAreArray(files));
}

TEST_F(SourceCopyMemoryTest, aLackOfMemoryAtAFolderIsWaitedForAndLosesNoItem)
{
    QByteArrayList files;
    for (const QByteArray folder : {"a", "b", "c"}) {
        for (const QByteArray file : {"1", "2", "3"}) {
            files.append(folder + file);
            mac.writeFile("Documents/" + folder + '/' + files.last(), "x");
        }
    }
    mac.writeFile("Documents/own/copy", "x");
    const FileURL root = mac.root().appendingNative("Documents");
    const auto items = DirectoryEnumerator::open(root, {});
    ForgetfulDrive drive(1'000, preparing());
    onRunThread([&] { SourceCopy(**items, drive, root, "Personal Files/Documents", *task).run(); });
    EXPECT_EQ(drive.asked, 6) << "three times for each of the two folders";
    EXPECT_THAT(engine.progress().errors, IsEmpty());
    EXPECT_EQ(engine.progress().filesSkipped, 0);
    EXPECT_THAT(record.names("published"), UnorderedElementsAreArray(files));
}

INSTANTIATE_TEST_SUITE_P(LackOfRoom, SourceCopyTest, ::testing::Values(ENOSPC, EDQUOT, EMFILE));

} // namespace
} // namespace keelbright

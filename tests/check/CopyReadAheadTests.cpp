#include "KeelbrightCore/check/CopyReadAhead.h"

#include "tests/check/CheckTestCase.h"

namespace keelbright {
namespace {

using Kind = CopyPiece::Kind;
using testing::content;

class CopyReadAheadTests : public ::testing::Test
{
protected:
    void SetUp() override
    {
        auto opened = ReadOnlyTree::open(mac.root());
        ASSERT_TRUE(opened.has_value());
        tree = std::move(*opened);
    }

    /// Takes all pieces of one item: its bytes, holes as zeros.
    [[nodiscard]] static QByteArray readOne(CopyReadAhead& pieces)
    {
        const CopyPiece begin = pieces.next();
        EXPECT_EQ(begin.kind, Kind::begin);
        EXPECT_EQ(begin.code, 0);
        QByteArray bytes;
        for (;;) {
            CopyPiece piece = pieces.next();
            if (piece.kind == Kind::end) {
                EXPECT_EQ(piece.code, 0);
                return bytes;
            }
            EXPECT_EQ(piece.offset, bytes.size());
            bytes += piece.kind == Kind::hole ? QByteArray(piece.size, '\0')
                                              : QByteArray(piece.buffer->data(), piece.size);
            if (piece.buffer)
                pieces.giveBack(std::move(piece.buffer));
        }
    }

    testing::TestMac mac;
    std::unique_ptr<ReadOnlyTree> tree;
};

TEST_F(CopyReadAheadTests, givesFilesOfEverySizeByteForByte)
{
    QList<CheckedItem> items;
    QByteArrayList expected;
    for (const qsizetype size :
         {0, 1, 511, 4096, 65'535, 65'536, 65'537, 1'048'575, 1'048'576, 1'048'577, 9'000'001}) {
        const QByteArray name = QByteArray::number(size);
        expected.append(content(size));
        mac.writeFile("folder/" + name, expected.last());
        items.append({.folder = "folder", .name = name});
    }
    CopyReadAhead pieces(*tree, items);
    for (const QByteArray& bytes : std::as_const(expected))
        EXPECT_TRUE(readOne(pieces) == bytes) << bytes.size();
}

TEST_F(CopyReadAheadTests, givesHolesWithoutReadingThem)
{
    const FileURL sparse = mac.writeFile("sparse", "start");
    constexpr qint64 size = qint64{40} * 1024 * 1024 + 7;
    ASSERT_EQ(::truncate(sparse.nativePath().constData(), size), 0);
    CopyReadAhead pieces(*tree, {{.folder = {}, .name = "sparse"}});
    QByteArray expected("start");
    expected.append(QByteArray(size - expected.size(), '\0'));
    EXPECT_TRUE(readOne(pieces) == expected);
}

TEST_F(CopyReadAheadTests, saysWhatIsNoFileAndWhatIsMissing)
{
    mac.makeFolder("folder");
    ASSERT_EQ(::symlink("folder", mac.root().appendingNative("link").nativePath().constData()), 0);
    ASSERT_EQ(::mkfifo(mac.root().appendingNative("pipe").nativePath().constData(), 0600), 0);
    CopyReadAhead pieces(*tree, {{.folder = {}, .name = "link"},
                                 {.folder = {}, .name = "folder"},
                                 {.folder = {}, .name = "pipe"},
                                 {.folder = {}, .name = "missing"},
                                 {.folder = "link", .name = "inside"}});
    EXPECT_EQ(pieces.next().status.type, EntryType::symbolicLink);
    EXPECT_EQ(pieces.next().status.type, EntryType::directory);
    EXPECT_EQ(pieces.next().status.type, EntryType::other);
    EXPECT_EQ(pieces.next().code, ENOENT);
    EXPECT_THAT(pieces.next().code, ::testing::AnyOf(ELOOP, ENOTDIR)) << "no link is followed on the way";
}

TEST_F(CopyReadAheadTests, canBeGivenUpInTheMiddle)
{
    QList<CheckedItem> items;
    for (int i = 0; i < 40; ++i) {
        const QByteArray name = QByteArray::number(i);
        mac.writeFile(name, content(3'000'000));
        items.append({.folder = {}, .name = name});
    }
    CopyReadAhead pieces(*tree, items);
    EXPECT_EQ(pieces.next().kind, Kind::begin);
    EXPECT_EQ(pieces.next().kind, Kind::data);
    // The destructor returns although nobody takes the rest.
}

} // namespace
} // namespace keelbright

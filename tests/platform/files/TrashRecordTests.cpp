#include "KeelbrightCore/platform/files/TrashRecord.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"

#include <QTimeZone>
#include <gtest/gtest.h>
#include <set>

namespace keelbright {

namespace {

constexpr qsizetype longest = 255;
constexpr qsizetype room = longest - TrashRecord::suffix.size();

QByteArray name(const QByteArray& original, int attempt)
{
    return TrashRecord::itemName(original, attempt, longest);
}

} // namespace

TEST(TrashRecordTests, theFirstNameIsTheItemsOwn)
{
    EXPECT_EQ(name("photo.jpg", 1), "photo.jpg");
    EXPECT_EQ(name("\xFF\n.jpg", 1), "\xFF\n.jpg");
}

TEST(TrashRecordTests, furtherNamesHaveANumberInFrontOfTheExtension)
{
    EXPECT_EQ(name("photo.jpg", 2), "photo 2.jpg");
    EXPECT_EQ(name("photo.jpg", 3), "photo 3.jpg");
    EXPECT_EQ(name("Makefile", 2), "Makefile 2");
    EXPECT_EQ(name(".hidden", 2), ".hidden 2");
    EXPECT_EQ(name("dot.", 2), "dot. 2");
}

TEST(TrashRecordTests, theLastNamesAreRandomSoThatNoSearchIsLong)
{
    std::set<QByteArray> names;
    for (int attempt = 1; attempt <= TrashRecord::attempts; ++attempt)
        names.insert(name("photo.jpg", attempt));
    EXPECT_GE(names.size(), size_t{TrashRecord::attempts} - 1);
    EXPECT_FALSE(names.contains("photo 100.jpg"));
}

TEST(TrashRecordTests, aLongNameIsShortenedSoThatItsRecordFits)
{
    const QByteArray original = QByteArray(251, 'n') + ".jpg";
    EXPECT_EQ(name(original, 1), QByteArray(room - 4, 'n') + ".jpg");
    EXPECT_EQ(name(original, 2), QByteArray(room - 6, 'n') + " 2.jpg");
    EXPECT_EQ(name(QByteArray(255, 'n'), 1), QByteArray(room, 'n'));
    EXPECT_EQ(name(QByteArray(room, 'n'), 1), QByteArray(room, 'n'));
}

TEST(TrashRecordTests, aNameThatIsAllExtensionIsShortenedToo)
{
    const QByteArray original = "a." + QByteArray(253, 'e');
    EXPECT_EQ(name(original, 1), original.left(room));
    EXPECT_EQ(name(original, 2), original.left(room - 2) + " 2");
}

TEST(TrashRecordTests, noCharacterIsCutInTwo)
{
    EXPECT_EQ(name(QByteArray("ü").repeated(127), 1), QByteArray("ü").repeated(room / 2));
    EXPECT_EQ(name("x" + QByteArray("🙂").repeated(63), 1), "x" + QByteArray("🙂").repeated((room - 1) / 4));
}

TEST(TrashRecordTests, aLongNameThatIsNotUtf8IsCutAtTheByte)
{
    EXPECT_EQ(name(QByteArray(255, '\x80'), 1), QByteArray(room, '\x80'));
    EXPECT_EQ(name(QByteArray(255, '\xFF'), 1), QByteArray(room, '\xFF'));
}

TEST(TrashRecordTests, theFileSystemsOwnLimitHolds)
{
    EXPECT_EQ(TrashRecord::itemName(QByteArray(143, 'n'), 1, 143).size(), 143 - TrashRecord::suffix.size());
}

TEST(TrashRecordTests, theContentIsThatOfTheTrashSpecification)
{
    const QDateTime date(QDate(2026, 3, 2), QTime(9, 5, 7, 999), QTimeZone(3600));
    EXPECT_EQ(TrashRecord::content("/home/mira/a b.txt", date),
              "[Trash Info]\nPath=/home/mira/a%20b.txt\nDeletionDate=2026-03-02T09:05:07\n");
}

TEST(TrashRecordTests, thePathIsPercentEncodedToTheByte)
{
    const QDateTime date(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone);
    const auto path = [&](const QByteArray& original) {
        const QByteArray content = TrashRecord::content(original, date);
        return content.mid(18, content.indexOf('\n', 18) - 18);
    };
    EXPECT_EQ(path("a/b-c_d.e~f0"), "a/b-c_d.e~f0");
    EXPECT_EQ(path("100%\n\t=;[x]"), "100%25%0A%09%3D%3B%5Bx%5D");
    EXPECT_EQ(path("Büro\xFF\x01"), "B%C3%BCro%FF%01");
}

} // namespace keelbright

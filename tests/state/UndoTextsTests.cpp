#include "Keelbright/state/UndoTexts.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class UndoTextsTest : public ::testing::Test
{
protected:
    [[nodiscard]] static UndoResult resultWith(qint64 restored, qsizetype failed, qsizetype remaining)
    {
        UndoResult result;
        result.restored = restored;
        for (qsizetype i = 0; i < failed; ++i)
            result.failures.append({FileURL::fromPath(u"/home/mira/%1.txt"_s.arg(i)), u"It is gone."_s});
        OrganizedFiles rest;
        rest.moves.resize(remaining);
        result.remaining = rest;
        return result;
    }

    TestMac mac; // for its locale
};

} // namespace

TEST_F(UndoTextsTest, theEntrySaysWhatCanBeUndone)
{
    EXPECT_EQ(UndoTexts::action(std::nullopt), u"Undo"_s);
    EXPECT_EQ(UndoTexts::action(UndoStore::Kind::organise), u"Undo Organise"_s);
    EXPECT_EQ(UndoTexts::action(UndoStore::Kind::trash), u"Undo Move to Trash"_s);
}

TEST_F(UndoTextsTest, progressHasTheNumbersOfTheLocale)
{
    EXPECT_EQ(UndoTexts::progress(1'200, 100'000), u"1,200 of 100,000"_s);
}

TEST_F(UndoTextsTest, aWholeUndoIsOneSentence)
{
    EXPECT_EQ(UndoTexts::headline(resultWith(1, 0, 0)), u"1 item is back where it was."_s);
    EXPECT_EQ(UndoTexts::headline(resultWith(12'345, 0, 0)), u"12,345 items are back where they were."_s);
    EXPECT_EQ(UndoTexts::details(resultWith(3, 0, 0)), QStringList());
}

TEST_F(UndoTextsTest, whatCouldNotBePutBackComesFirst)
{
    EXPECT_EQ(UndoTexts::headline(resultWith(5, 1, 0)), u"1 item could not be put back."_s);
    EXPECT_EQ(UndoTexts::details(resultWith(5, 1, 0)), QStringList{u"5 items are back where they were."_s});
    EXPECT_EQ(UndoTexts::headline(resultWith(0, 2, 0)), u"2 items could not be put back."_s);
    EXPECT_EQ(UndoTexts::details(resultWith(0, 2, 0)), QStringList{u"Nothing was put back."_s});
}

TEST_F(UndoTextsTest, aCancelSaysWhatIsLeft)
{
    EXPECT_EQ(UndoTexts::headline(resultWith(1, 2, 3)), u"The undo was cancelled."_s);
    EXPECT_EQ(UndoTexts::details(resultWith(1, 2, 3)),
              (QStringList{u"1 item is back where it was."_s, u"2 items could not be put back."_s,
                           u"3 items were not tried; undo once more to go on."_s}));
    EXPECT_EQ(UndoTexts::details(resultWith(2, 0, 1)),
              (QStringList{u"2 items are back where they were."_s,
                           u"1 item was not tried; undo once more to go on."_s}));
}

TEST_F(UndoTextsTest, theListHasALineForEachItem)
{
    EXPECT_EQ(UndoTexts::listOf(resultWith(0, 2, 0)),
              u"/home/mira/0.txt\tIt is gone.\n/home/mira/1.txt\tIt is gone.\n"_s);
}

} // namespace keelbright::testing

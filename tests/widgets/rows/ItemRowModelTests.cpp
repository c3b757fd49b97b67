#include "Keelbright/widgets/rows/ItemRowModel.h"
#include "tests/support/Printing.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

struct Note
{
    int id = 0;
    QString text;

    friend bool operator==(const Note&, const Note&) = default;
};

class NoteRows : public ItemRowModel<Note>
{
public:
    [[nodiscard]] ListRow rowAt(int row) const override
    {
        ListRow shown;
        shown.title = m_titles.at(row);
        return shown;
    }

protected:
    void prepareRows() override
    {
        m_titles.clear();
        for (const Note& note : items())
            m_titles.append(note.text.toUpper());
    }

private:
    QStringList m_titles;
};

} // namespace

TEST(ItemRowModelTests, hasOneRowForEachItem)
{
    NoteRows rows;
    const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_TRUE(rows.setItems({{7, u"seven"_s}, {3, u"three"_s}}));
    EXPECT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.rowCount(rows.index(0)), 0);
    EXPECT_EQ(rows.itemAt(1), (Note{3, u"three"_s}));
    EXPECT_TRUE(rows.setItems({}));
    EXPECT_EQ(rows.rowCount(), 0);
}

TEST(ItemRowModelTests, preparesItsRowsBeforeAViewAsksForThem)
{
    NoteRows rows;
    QString title;
    QObject::connect(&rows, &QAbstractItemModel::modelReset, &rows, [&] { title = rows.rowAt(0).title; });
    rows.setItems({{7, u"seven"_s}});
    EXPECT_EQ(title, u"SEVEN"_s);
}

TEST(ItemRowModelTests, theSameItemsChangeNothing)
{
    NoteRows rows;
    rows.setItems({{7, u"seven"_s}});
    const QSignalSpy resets(&rows, &QAbstractItemModel::modelReset);
    EXPECT_FALSE(rows.setItems({{7, u"seven"_s}}));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_TRUE(rows.setItems({{7, u"another seven"_s}}));
    EXPECT_EQ(resets.count(), 1);
}

TEST(ItemRowModelTests, findsTheRowOfAnId)
{
    NoteRows rows;
    rows.setItems({{7, u"seven"_s}, {3, u"three"_s}});
    EXPECT_EQ(rows.rowOf(3), 1);
    EXPECT_EQ(rows.rowOf(std::optional(7)), 0);
    EXPECT_EQ(rows.rowOf(4), -1);
    EXPECT_EQ(rows.rowOf(std::optional<int>()), -1);
}

} // namespace keelbright::testing

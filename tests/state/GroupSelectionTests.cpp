#include "Keelbright/state/GroupSelection.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

struct Song
{
    QUuid id;
    qint64 sizeBytes = 0;

    friend bool operator==(const Song&, const Song&) = default;
};

struct Album
{
    QString id;
    QList<Song> songs;

    friend bool operator==(const Album&, const Album&) = default;
};

class GroupSelectionTest : public ::testing::Test
{
protected:
    GroupSelectionTest() { selection.setGroups({first, second}); }

    Song loud{QUuid::createUuid(), 30};
    Song quiet{QUuid::createUuid(), 10};
    Song single{QUuid::createUuid(), 5};
    Album first{u"first"_s, {loud, quiet}};
    Album second{u"second"_s, {single}};
    Album empty{u"empty"_s, {}};
    GroupSelection<Album, &Album::songs> selection;
};

} // namespace

TEST_F(GroupSelectionTest, startsWithNothingSelectedAndNoGroupShown)
{
    EXPECT_EQ(selection.ids(), QSet<QUuid>());
    EXPECT_EQ(selection.selectedItems(), QList<Song>());
    EXPECT_EQ(selection.selectedBytes(), 0);
    EXPECT_EQ(selection.shownID(), std::nullopt);
    EXPECT_EQ(selection.shown(), nullptr);
}

TEST_F(GroupSelectionTest, findsAGroupByItsId)
{
    EXPECT_EQ(selection.group(u"second"_s), &selection.groups().at(1));
    EXPECT_EQ(selection.group(u"third"_s), nullptr);
}

TEST_F(GroupSelectionTest, showsTheGroupThatHasTheShownId)
{
    selection.setShownID(u"second"_s);
    EXPECT_EQ(selection.shown(), &selection.groups().at(1));
    selection.setGroups({first});
    EXPECT_EQ(selection.shown(), nullptr);
    EXPECT_EQ(selection.shownID(), u"second"_s);
    selection.setShownID(std::nullopt);
    EXPECT_EQ(selection.shown(), nullptr);
}

TEST_F(GroupSelectionTest, showsTheFirstGroupOrNone)
{
    selection.showFirst();
    EXPECT_EQ(selection.shownID(), u"first"_s);
    selection.setGroups({});
    selection.showFirst();
    EXPECT_EQ(selection.shownID(), std::nullopt);
}

TEST_F(GroupSelectionTest, newGroupsLeaveTheSelectionAsItIs)
{
    selection.setSelected(loud.id, true);
    selection.setGroups({second});
    EXPECT_EQ(selection.ids(), QSet<QUuid>{loud.id});
    EXPECT_EQ(selection.selectedBytes(), 0);
}

TEST_F(GroupSelectionTest, aGroupIsSelectedInPartOrAsAWhole)
{
    EXPECT_EQ(selection.state(first), SelectionState::none);
    selection.setSelected(loud.id, true);
    EXPECT_EQ(selection.state(first), SelectionState::partial);
    selection.setSelected(quiet.id, true);
    EXPECT_EQ(selection.state(first), SelectionState::all);
    EXPECT_EQ(selection.state(second), SelectionState::none);
    selection.setSelected(loud.id, false);
    EXPECT_EQ(selection.state(first), SelectionState::partial);
}

TEST_F(GroupSelectionTest, aGroupWithoutItemsIsNeverSelected)
{
    selection.selectAll();
    EXPECT_EQ(selection.state(empty), SelectionState::none);
}

TEST_F(GroupSelectionTest, selectsAllItemsOfAGroupAndNoOthers)
{
    selection.setSelected(single.id, true);
    selection.setSelected(first, true);
    EXPECT_EQ(selection.ids(), (QSet<QUuid>{loud.id, quiet.id, single.id}));
    selection.setSelected(first, false);
    EXPECT_EQ(selection.ids(), QSet<QUuid>{single.id});
}

TEST_F(GroupSelectionTest, selectsEverything)
{
    selection.setSelected(quiet.id, true);
    selection.selectAll();
    EXPECT_EQ(selection.ids(), (QSet<QUuid>{loud.id, quiet.id, single.id}));
    EXPECT_EQ(selection.selectedBytes(), 45);
}

TEST_F(GroupSelectionTest, listsSelectedItemsInTheOrderOfTheGroups)
{
    selection.setIds({single.id, quiet.id});
    EXPECT_EQ(selection.selectedItems(), (QList<Song>{quiet, single}));
    EXPECT_EQ(selection.selectedBytes(), 15);
}

TEST_F(GroupSelectionTest, anUnknownIdSelectsNothing)
{
    selection.setSelected(QUuid::createUuid(), true);
    EXPECT_EQ(selection.selectedItems(), QList<Song>());
    EXPECT_EQ(selection.selectedBytes(), 0);
    EXPECT_EQ(selection.state(second), SelectionState::none);
}

TEST_F(GroupSelectionTest, theSumOfSizesStaysAtTheLargestNumber)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    const Album endless{u"endless"_s, {{QUuid::createUuid(), maximum}, {QUuid::createUuid(), 1}}};
    selection.setGroups({endless});
    selection.selectAll();
    EXPECT_EQ(selection.selectedBytes(), maximum);
}

TEST_F(GroupSelectionTest, leavesOutItemsAndTheGroupsThatHaveNoOthers)
{
    EXPECT_EQ(selection.groupsWithout({single.id, loud.id}), (QList<Album>{{u"first"_s, {quiet}}}));
    EXPECT_EQ(selection.groupsWithout({}), (QList<Album>{first, second}));
    EXPECT_EQ(selection.groups(), (QList<Album>{first, second})) << "they stay as they are";
}

} // namespace keelbright::testing

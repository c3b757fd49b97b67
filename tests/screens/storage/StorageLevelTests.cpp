#include "Keelbright/screens/storage/StorageLevel.h"

#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

QStringList sorted(const QStringList& names)
{
    QList<FolderSizeNode> nodes;
    for (const QString& name : names)
        nodes.append({.id = QUuid::createUuid(), .name = name, .url = {}});
    QStringList result;
    for (const qsizetype index : orderByName(nodes))
        result.append(names.at(index));
    return result;
}

} // namespace

TEST(StorageLevel, namesAreSortedAsPeopleDoWithoutLetterCase)
{
    const TestMac mac;
    EXPECT_EQ(sorted({u"zebra"_s, u"apple"_s, u"Äpfel"_s, u"Banana"_s, u"Zoo"_s}),
              (QStringList{u"Äpfel"_s, u"apple"_s, u"Banana"_s, u"zebra"_s, u"Zoo"_s}));
}

TEST(StorageLevel, namesThatDifferInCaseOnlyStayInTheirOrder)
{
    const TestMac mac;
    EXPECT_EQ(sorted({u"b"_s, u"note"_s, u"NOTE"_s, u"Note"_s, u"a"_s}),
              (QStringList{u"a"_s, u"b"_s, u"note"_s, u"NOTE"_s, u"Note"_s}));
    EXPECT_EQ(sorted({u"NOTE"_s, u"note"_s}), (QStringList{u"NOTE"_s, u"note"_s}));
}

TEST(StorageLevel, theLocaleDecides)
{
    TestMac mac;
    mac.setLocale(QLocale(QLocale::Swedish));
    EXPECT_EQ(sorted({u"öl"_s, u"zoo"_s, u"ost"_s}), (QStringList{u"ost"_s, u"zoo"_s, u"öl"_s}));
    mac.setLocale(QLocale(QLocale::German));
    EXPECT_EQ(sorted({u"öl"_s, u"zoo"_s, u"ost"_s}), (QStringList{u"öl"_s, u"ost"_s, u"zoo"_s}));
}

TEST(StorageLevel, theLocaleOfMachinesDoesNotPutCapitalsFirst)
{
    TestMac mac;
    mac.setLocale(QLocale::c());
    EXPECT_EQ(sorted({u"b"_s, u"Z"_s, u"a"_s}), (QStringList{u"a"_s, u"b"_s, u"Z"_s}));
}

TEST(StorageLevel, aMeasuredLevelHoldsWhatTheScreenShows)
{
    const TestMac mac;
    mac.writeFile("Users/mira/Things/b.mov", QByteArray(200, 'x'));
    mac.writeFile("Users/mira/Things/A/c.txt", QByteArray(100, 'x'));
    mac.writeFile("Users/mira/Things/A/d.txt", QByteArray(250, 'x'));
    const FileURL things = mac.home().appending(u"Things"_s);
    const StorageLevel level = measureLevel(things);
    EXPECT_EQ(level.url, things);
    ASSERT_EQ(level.nodes.size(), 2);
    EXPECT_EQ(level.nodes.at(0).name, u"A"_s);
    EXPECT_EQ(level.nodes.at(0).totalBytes, 350);
    EXPECT_EQ(level.nodes.at(1).name, u"b.mov"_s);
    EXPECT_EQ(level.nameOrder, (QList<qsizetype>{0, 1}));
    EXPECT_EQ(level.totalBytes, 550);
    EXPECT_EQ(level.breakdown,
              (QList<FileTypeShare>{{u"Folders"_s, 350, Role::accent}, {u"Video"_s, 200, Role::purple}}));
}

TEST(StorageLevel, aFolderThatIsNotThereIsAnEmptyLevel)
{
    const TestMac mac;
    const StorageLevel level = measureLevel(mac.home().appending(u"Nowhere"_s));
    EXPECT_TRUE(level.nodes.isEmpty());
    EXPECT_TRUE(level.nameOrder.isEmpty());
    EXPECT_EQ(level.totalBytes, 0);
    EXPECT_TRUE(level.breakdown.isEmpty());
}

} // namespace keelbright::testing

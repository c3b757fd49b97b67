#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/Printing.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"

#include <QJsonDocument>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

ActivityEntry entryWithTitle(const QString& title)
{
    return {
        .id = QUuid::createUuid(),
        .timestamp = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 0), utcZone),
        .kind = Kind::clean,
        .title = title,
        .detail = u"3 items"_s,
        .bytesAffected = 2'500'000,
        .itemCount = 3,
    };
}

QStringList titlesOf(const QList<ActivityEntry>& entries)
{
    QStringList titles;
    for (const ActivityEntry& entry : entries)
        titles.append(entry.title);
    return titles;
}

class ActivityStoreTest : public ::testing::Test
{
protected:
    void writeLog(const QByteArray& text) const
    {
        mac.writeFile("Users/mira/.local/share/Keelbright/activity.json", text);
    }

    void writeEntries(int count) const
    {
        QJsonArray array;
        for (int i = 0; i < count; ++i)
            array.append(entryWithTitle(QString::number(i)).toJson());
        writeLog(QJsonDocument(array).toJson());
    }

    [[nodiscard]] bool logExists() { return mac.fileManager().fileExists(store.fileURL()).exists; }

    TestMac mac;
    ActivityStore store{mac.fileManager().applicationSupportDirectory()};
};

const QByteArray goodEntry =
    R"({"id":"0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10","timestamp":"2026-03-01T09:05:00Z","kind":"Backup",)"
    R"("title":"t","detail":"d","bytesAffected":1,"itemCount":1})";

} // namespace

TEST_F(ActivityStoreTest, theLogLiesInAFolderOfItsOwnInApplicationSupport)
{
    EXPECT_EQ(store.fileURL(),
              mac.fileManager().applicationSupportDirectory().appending(u"Keelbright/activity.json"_s));
    EXPECT_TRUE(mac.fileManager().fileExists(store.fileURL().deletingLastPathComponent()).isDirectory);
    EXPECT_FALSE(logExists());
}

TEST_F(ActivityStoreTest, theSharedStoreIsOneInTheUsersApplicationSupport)
{
    EXPECT_EQ(&ActivityStore::shared(), &ActivityStore::shared());
    EXPECT_EQ(ActivityStore::shared().fileURL(), store.fileURL());
}

TEST_F(ActivityStoreTest, aLogThatWasNeverWrittenIsEmptyAndStaysAbsent)
{
    EXPECT_TRUE(store.load().isEmpty());
    EXPECT_FALSE(logExists());
}

TEST_F(ActivityStoreTest, anEntryComesBackEqual)
{
    const ActivityEntry entry = entryWithTitle(u"Zwölf \"Dateien\"\nsortiert, 100%"_s);
    store.append(entry);
    EXPECT_EQ(store.load(), QList{entry});
}

TEST_F(ActivityStoreTest, theNewestEntryComesFirst)
{
    store.append(entryWithTitle(u"first"_s));
    store.append(entryWithTitle(u"second"_s));
    EXPECT_EQ(titlesOf(store.load()), (QStringList{u"second"_s, u"first"_s}));
    const ActivityStore another(mac.fileManager().applicationSupportDirectory());
    EXPECT_EQ(titlesOf(another.load()), (QStringList{u"second"_s, u"first"_s}));
}

TEST_F(ActivityStoreTest, theFileIsAnIndentedListOfObjectsWithSevenKeys)
{
    ActivityEntry entry = entryWithTitle(u"t"_s);
    entry.id = QUuid(u"{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}"_s);
    store.append(entry);
    const QByteArray expected = R"([
    {
        "bytesAffected": 2500000,
        "detail": "3 items",
        "id": "0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10",
        "itemCount": 3,
        "kind": "Junk Clean",
        "timestamp": "2026-03-01T09:05:00Z",
        "title": "t"
    }
]
)";
    EXPECT_EQ(TestMac::read(store.fileURL()), expected);
}

TEST_F(ActivityStoreTest, with499EntriesAnAppendDropsNothing)
{
    writeEntries(499);
    store.append(entryWithTitle(u"new"_s));
    const QStringList titles = titlesOf(store.load());
    EXPECT_EQ(titles.size(), 500);
    EXPECT_EQ(titles.first(), u"new"_s);
    EXPECT_EQ(titles.last(), u"498"_s);
}

TEST_F(ActivityStoreTest, with500EntriesAnAppendDropsTheOldest)
{
    writeEntries(500);
    store.append(entryWithTitle(u"new"_s));
    const QStringList titles = titlesOf(store.load());
    EXPECT_EQ(titles.size(), 500);
    EXPECT_EQ(titles.first(), u"new"_s);
    EXPECT_EQ(titles.at(1), u"0"_s);
    EXPECT_EQ(titles.last(), u"498"_s);
}

TEST_F(ActivityStoreTest, aLogAboveTheMaximumIsReadWholeAndCutByTheNextAppend)
{
    writeEntries(700);
    EXPECT_EQ(store.load().size(), 700);
    store.append(entryWithTitle(u"new"_s));
    EXPECT_EQ(store.load().size(), 500);
    EXPECT_EQ(store.load().last().title, u"498"_s);
}

TEST_F(ActivityStoreTest, aFullScanIsReadThoughNothingWritesOne)
{
    writeLog("[" + QByteArray(goodEntry).replace("\"Backup\"", "\"Full Scan\"") + "]");
    ASSERT_EQ(store.load().size(), 1);
    EXPECT_EQ(store.load().first().kind, Kind::scan);
}

TEST_F(ActivityStoreTest, unknownKeysAreIgnored)
{
    writeLog("[" + QByteArray(goodEntry).replace("{\"id\"", "{\"colour\":\"red\",\"id\"") + "]");
    EXPECT_EQ(store.load().size(), 1);
}

TEST_F(ActivityStoreTest, oneBadEntryMakesTheWholeLogReadAsEmptyAndTheNextAppendReplacesIt)
{
    const QByteArrayList badEntries{
        QByteArray(goodEntry).replace("\"Backup\"", "\"Nap\""),
        QByteArray(goodEntry).replace("2026-03-01T09:05:00Z", "March"),
        QByteArray(goodEntry).replace("\"itemCount\":1", "\"count\":1"),
        QByteArray(goodEntry).replace("\"itemCount\":1", "\"itemCount\":1.5"),
        QByteArray(goodEntry).replace("\"itemCount\":1", "\"itemCount\":\"1\""),
        QByteArray(goodEntry).replace("\"title\":\"t\"", "\"title\":null"),
        QByteArray(goodEntry).replace("0A4BA8C1-", ""),
        "7",
    };
    for (const QByteArray& bad : badEntries) {
        SCOPED_TRACE(bad.toStdString());
        writeLog("[" + goodEntry + "," + bad + "," + goodEntry + "]");
        EXPECT_TRUE(store.load().isEmpty());
        store.append(entryWithTitle(u"new"_s));
        EXPECT_EQ(titlesOf(store.load()), QStringList{u"new"_s});
    }
}

TEST_F(ActivityStoreTest, aTextThatIsNoListReadsAsEmptyAndPrintsNothing)
{
    for (const QByteArray& text : {QByteArray(), QByteArray("{}"), QByteArray("null"), QByteArray("[{"),
                                   "[" + goodEntry, QByteArray("\xff\xfe"), QByteArray(10'000, '[')}) {
        SCOPED_TRACE(text.left(20).toStdString());
        writeLog(text);
        EXPECT_EQ(standardOutputOf([&] { EXPECT_TRUE(store.load().isEmpty()); }), QString());
    }
}

TEST_F(ActivityStoreTest, clearLeavesAnEmptyListInTheFile)
{
    store.append(entryWithTitle(u"first"_s));
    store.clear();
    EXPECT_TRUE(store.load().isEmpty());
    EXPECT_EQ(QJsonDocument::fromJson(TestMac::read(store.fileURL())).toJson(QJsonDocument::Compact), "[]");
}

TEST_F(ActivityStoreTest, clearOfALogThatNeverExistedCreatesAnEmptyList)
{
    store.clear();
    ASSERT_TRUE(logExists());
    EXPECT_EQ(QJsonDocument::fromJson(TestMac::read(store.fileURL())).toJson(QJsonDocument::Compact), "[]");
}

TEST_F(ActivityStoreTest, aFolderInTheLogsPlaceHoldsNothingUp)
{
    mac.makeFolder("Users/mira/.local/share/Keelbright/activity.json");
    EXPECT_EQ(standardOutputOf([&] {
                  store.append(entryWithTitle(u"lost"_s));
                  store.clear();
                  EXPECT_TRUE(store.load().isEmpty());
              }),
              QString());
}

TEST_F(ActivityStoreTest, aFolderThatCantBeCreatedHoldsNothingUp)
{
    const FileURL blocked = mac.writeFile("blocked", "");
    EXPECT_EQ(standardOutputOf([&] {
                  const ActivityStore poor(blocked);
                  poor.append(entryWithTitle(u"lost"_s));
                  EXPECT_TRUE(poor.load().isEmpty());
              }),
              QString());
}

TEST_F(ActivityStoreTest, csvOfAnEmptyLogIsTheHeaderWithoutALineFeed)
{
    EXPECT_EQ(store.exportCSV(), u"Timestamp,Type,Title,Detail,Items,Size"_s);
    writeLog("broken");
    EXPECT_EQ(store.exportCSV(), u"Timestamp,Type,Title,Detail,Items,Size"_s);
}

TEST_F(ActivityStoreTest, csvHasALineForEachEntryNewestFirst)
{
    store.append(entryWithTitle(u"first"_s));
    ActivityEntry second = entryWithTitle(u"second"_s);
    second.kind = Kind::appRemove;
    second.bytesAffected = 0;
    second.itemCount = 12;
    store.append(second);
    EXPECT_EQ(store.exportCSV(), u"Timestamp,Type,Title,Detail,Items,Size\n"
                                 "2026-03-01T09:05:00Z,App Removed,second,3 items,12,\n"
                                 "2026-03-01T09:05:00Z,Junk Clean,first,3 items,3,2.5 MB"_s);
}

TEST_F(ActivityStoreTest, csvTurnsCommasOfTextsIntoSemicolonsAndQuotesNothing)
{
    ActivityEntry entry = entryWithTitle(u"a, \"b\", c"_s);
    entry.detail = u"one, two\nthree"_s;
    store.append(entry);
    EXPECT_EQ(store.exportCSV(), u"Timestamp,Type,Title,Detail,Items,Size\n"
                                 "2026-03-01T09:05:00Z,Junk Clean,a; \"b\"; c,one; two\nthree,3,2.5 MB"_s);
}

TEST_F(ActivityStoreTest, csvLeavesTheDecimalCommaOfASizeAlone)
{
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    store.append(entryWithTitle(u"t"_s));
    EXPECT_TRUE(store.exportCSV().endsWith(u",t,3 items,3,2,5 MB"_s));
}

} // namespace keelbright::testing

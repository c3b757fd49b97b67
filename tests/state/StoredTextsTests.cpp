#include "Keelbright/state/StoredTexts.h"

#include "tests/support/PseudoTranslation.h"

#include <gtest/gtest.h>

namespace keelbright::StoredTexts {

using namespace Qt::StringLiterals;
using testing::PseudoTranslation;

namespace {

/// Gives back the number that a text was asked for with.
class NumberTranslation : public QTranslator
{
public:
    NumberTranslation() { QCoreApplication::installTranslator(this); }

    ~NumberTranslation() override { QCoreApplication::removeTranslator(this); }

    NumberTranslation(const NumberTranslation&) = delete;
    NumberTranslation& operator=(const NumberTranslation&) = delete;

    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char*, const char*, const char*, int number) const override
    {
        return QString::number(number);
    }
};

/// Translators are asked where there is an application.
class StoredTextsTests : public ::testing::Test
{
protected:
    int argc = 1;
    char name[13] = "StoredTexts";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
};

} // namespace

TEST_F(StoredTextsTests, whatIsStoredIsEnglishInEveryLanguage)
{
    const PseudoTranslation translation;
    EXPECT_EQ(stored(backupCompleted), u"Backup completed"_s);
    EXPECT_EQ(stored(filesBackedUp, {u"3"_s, u"2 MB"_s}), u"3 files · 2 MB"_s);
    EXPECT_EQ(stored(appRemoved, {u"Sketchbook"_s}), u"Sketchbook removed"_s);
}

TEST_F(StoredTextsTests, aValueMayLookLikeAPlaceForValues)
{
    EXPECT_EQ(stored(filesSortedIn, {u"3"_s, u"100%1"_s}), u"3 files sorted into subfolders in 100%1"_s);
    EXPECT_EQ(shownDetail(u"3 files sorted into subfolders in 100%1"_s),
              u"3 files sorted into subfolders in 100%1"_s);
}

TEST_F(StoredTextsTests, englishIsShownAsItIsStored)
{
    for (const QString& title : {u"Backup completed"_s, u"Files organised"_s, u"Sketchbook removed"_s})
        EXPECT_EQ(shownTitle(title), title);
    for (const QString& detail :
         {u"1 files · 12 bytes"_s, u"1 item across 2 categories"_s, u"4 files sorted into subfolders"_s})
        EXPECT_EQ(shownDetail(detail), detail);
    EXPECT_EQ(shownError(u"Skip a.txt: no"_s), u"Skip a.txt: no"_s);
}

TEST_F(StoredTextsTests, aTitleIsTranslatedAndKeepsItsValues)
{
    const PseudoTranslation translation;
    EXPECT_EQ(shownTitle(u"Backup completed with warnings"_s),
              u"⟦StoredTexts: Backup completed with warnings⟧"_s);
    EXPECT_EQ(shownTitle(u"Sketchbook removed"_s), u"⟦StoredTexts: Sketchbook removed⟧"_s);
}

TEST_F(StoredTextsTests, aDetailIsTranslatedAndKeepsItsValues)
{
    const PseudoTranslation translation;
    for (const QString& detail :
         {u"3 files · 2 MB"_s, u"1 item across 2 categories"_s, u"5 items across 2 categories"_s,
          u"1 file sorted into subfolders"_s, u"4 files sorted into subfolders"_s,
          u"1 file sorted into subfolders in Rome in May"_s, u"4 files sorted into subfolders in Rome"_s,
          u"App + 1 leftover file moved to Trash"_s, u"App + 2 leftover files moved to Trash"_s,
          u"App bundle moved to Trash"_s})
        EXPECT_EQ(shownDetail(detail), u"⟦StoredTexts: %1⟧"_s.arg(detail));
}

TEST_F(StoredTextsTests, theNumberPicksThePluralOfADetail)
{
    const NumberTranslation translation;
    EXPECT_EQ(shownDetail(u"1 files · 2 MB"_s), u"1"_s);
    EXPECT_EQ(shownDetail(u"30 items across 2 categories"_s), u"30"_s);
    EXPECT_EQ(shownDetail(u"App bundle moved to Trash"_s), u"-1"_s);
    EXPECT_EQ(shownDetail(u"1 item across 2 categories"_s), u"-1"_s);
}

TEST_F(StoredTextsTests, whatIsKnownOfAnErrorIsTranslated)
{
    const PseudoTranslation translation;
    for (const QString& line : {u"Skip a.txt: no"_s, u"Dir error /a: no"_s, u"Cannot create /a: no"_s,
                                u"Cannot enumerate: /a"_s, u"Manifest write failed: no"_s,
                                u"Report write failed: no"_s, u"Could not create backup folders: no"_s})
        EXPECT_EQ(shownError(line), u"⟦StoredTexts: %1⟧"_s.arg(line));
}

TEST_F(StoredTextsTests, anyOtherTextStaysAsItIs)
{
    const PseudoTranslation translation;
    EXPECT_EQ(shownTitle(u"Something of a later version"_s), u"Something of a later version"_s);
    EXPECT_EQ(shownDetail(QString()), QString());
    EXPECT_EQ(shownError(u"Skipped nothing"_s), u"Skipped nothing"_s);
}

} // namespace keelbright::StoredTexts

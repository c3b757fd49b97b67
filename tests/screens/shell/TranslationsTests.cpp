#include "Keelbright/screens/shell/Translations.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeySequence>
#include <QLibraryInfo>
#include <gtest/gtest.h>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

QString settings()
{
    return QCoreApplication::translate("Screen", "Settings");
}

QString textIn(const QStringList& languages)
{
    const Translations translations(languages);
    return settings();
}

} // namespace

TEST(TranslationsTests, theFirstLanguageWithTextsIsTaken)
{
    EXPECT_EQ(textIn({u"de"_s}), u"Einstellungen"_s);
    EXPECT_EQ(textIn({u"de-DE"_s, u"en-US"_s}), u"Einstellungen"_s);
    EXPECT_EQ(textIn({u"tlh"_s, u"de"_s}), u"Einstellungen"_s);
}

TEST(TranslationsTests, aCountrysVariantTakesTheTextsOfTheLanguage)
{
    EXPECT_EQ(textIn({u"de-AT"_s}), u"Einstellungen"_s);
    EXPECT_EQ(textIn({u"de-Latn-CH"_s}), u"Einstellungen"_s);
}

TEST(TranslationsTests, englishIsALanguageToo)
{
    EXPECT_EQ(textIn({u"en"_s, u"de"_s}), u"Settings"_s);
    EXPECT_EQ(textIn({u"en-GB"_s, u"de"_s}), u"Settings"_s);
}

TEST(TranslationsTests, theLocaleOfMachinesIsEnglish)
{
    EXPECT_EQ(textIn({u"C"_s}), u"Settings"_s);
    EXPECT_EQ(textIn({u"C"_s, u"de"_s}), u"Settings"_s);
    EXPECT_EQ(textIn({}), u"Settings"_s);
}

TEST(TranslationsTests, itSaysWhichLanguageItTook)
{
    EXPECT_EQ(Translations(QStringList{u"de-AT"_s}).language(), u"de"_s);
    EXPECT_EQ(Translations(QStringList{u"en-GB"_s}).language(), u"en"_s);
    EXPECT_EQ(Translations(QStringList{u"tlh"_s}).language(), u"en"_s);
}

TEST(TranslationsTests, theTextsAreEnglishAgainAfterIt)
{
    {
        const Translations translations(QStringList{u"de"_s});
    }
    EXPECT_EQ(settings(), u"Settings"_s);
}

TEST(TranslationsTests, theKeysHaveTheNamesThatQtGivesThem)
{
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_de.qm"_s))
        GTEST_SKIP() << "Qt's own translations are not installed (Debian: qt6-translations-l10n)";
    const QKeySequence undo(Qt::CTRL | Qt::Key_Z);
    EXPECT_EQ(undo.toString(QKeySequence::NativeText), u"Ctrl+Z"_s);
    const Translations translations(QStringList{u"de"_s});
    EXPECT_EQ(undo.toString(QKeySequence::NativeText), u"Strg+Z"_s);
}

TEST(TranslationsTests, aNumberPicksItsForm)
{
    const Translations translations(QStringList{u"de"_s});
    const auto files = [](int count) {
        return QCoreApplication::translate("keelbright::ProposalModel", "%n files", nullptr, count);
    };
    EXPECT_EQ(files(1), u"1 Datei"_s);
    EXPECT_EQ(files(12), u"12 Dateien"_s);
}

} // namespace keelbright

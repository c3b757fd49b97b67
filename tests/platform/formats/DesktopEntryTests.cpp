#include "KeelbrightCore/platform/formats/DesktopEntry.h"

#include "tests/support/EnvironmentVariable.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

DesktopEntry read(const QByteArray& lines, const QStringList& languages = {})
{
    const auto entry = DesktopEntry::fromData("[Desktop Entry]\n" + lines, languages);
    EXPECT_TRUE(entry);
    return entry.value_or(DesktopEntry());
}

DesktopEntry running(const QString& exec)
{
    DesktopEntry entry;
    entry.exec = exec;
    return entry;
}

/// What the environment may say of the language of messages, none of which is set at first.
struct MessageSettings
{
    MessageSettings()
    {
        for (const EnvironmentVariable* variable : {&language, &all, &messages, &lang})
            variable->unset();
    }

    EnvironmentVariable language{"LANGUAGE"};
    EnvironmentVariable all{"LC_ALL"};
    EnvironmentVariable messages{"LC_MESSAGES"};
    EnvironmentVariable lang{"LANG"};
};

} // namespace

TEST(DesktopEntry, holdsWhatTheFileSays)
{
    const DesktopEntry entry = read("Type=Application\nName=Editor\nExec=gedit %U\nTryExec=gedit\n"
                                    "Icon=org.gnome.gedit\nNoDisplay=true\nHidden=false\n"
                                    "X-Flatpak=org.gnome.gedit\nX-SnapInstanceName=gedit\n");
    EXPECT_EQ(entry.type, u"Application"_s);
    EXPECT_EQ(entry.name, u"Editor"_s);
    EXPECT_EQ(entry.exec, u"gedit %U"_s);
    EXPECT_EQ(entry.tryExec, u"gedit"_s);
    EXPECT_EQ(entry.icon, u"org.gnome.gedit"_s);
    EXPECT_EQ(entry.flatpak, u"org.gnome.gedit"_s);
    EXPECT_EQ(entry.snap, u"gedit"_s);
    EXPECT_TRUE(entry.isNoDisplay);
    EXPECT_FALSE(entry.isHidden);
}

TEST(DesktopEntry, onlyItsOwnGroupCounts)
{
    const auto entry = DesktopEntry::fromData("# a comment\n[Desktop Action new]\nName=New Window\n"
                                              "[Desktop Entry]\nName=Files\n"
                                              "[Desktop Action other]\nName=Other\nExec=other\n"
                                              "[Desktop Entry]\nName=Twice\n",
                                              {});
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, u"Files"_s);
    EXPECT_EQ(entry->exec, QString());
}

TEST(DesktopEntry, aFileWithoutTheGroupIsNone)
{
    EXPECT_FALSE(DesktopEntry::fromData("Name=Files\n", {}));
    EXPECT_FALSE(DesktopEntry::fromData("", {}));
    EXPECT_FALSE(DesktopEntry::fromData("[desktop entry]\nName=Files\n", {}));
}

TEST(DesktopEntry, commentsBlanksAndOtherLinesAreNoKeys)
{
    const DesktopEntry entry = read("\n#Name=Commented\n  Name  =  Spaced out  \nnonsense\n=nothing\r\n");
    EXPECT_EQ(entry.name, u"Spaced out"_s);
}

TEST(DesktopEntry, theNameIsInTheBestLanguageThatThereIs)
{
    const QByteArray lines =
        "Name=Files\nName[de]=Dateien\nName[de_AT]=Dateien (Wien)\nName[sr@latin]=Datoteke\n";
    EXPECT_EQ(read(lines, {u"de_DE"_s, u"de"_s}).name, u"Dateien"_s);
    EXPECT_EQ(read(lines, {u"de_AT"_s, u"de"_s}).name, u"Dateien (Wien)"_s);
    EXPECT_EQ(read(lines, {u"sr_RS@latin"_s, u"sr_RS"_s, u"sr@latin"_s, u"sr"_s}).name, u"Datoteke"_s);
    EXPECT_EQ(read(lines, {u"fr"_s}).name, u"Files"_s);
}

TEST(DesktopEntry, escapesStandForWhatTheySay)
{
    EXPECT_EQ(read(R"(Name=\sA\tB\nC\rD\\E\qF)").name, u" A\tB\nC\rD\\E\\qF"_s);
    EXPECT_EQ(read("Name=ends\\").name, u"ends\\"_s);
}

TEST(DesktopEntry, aListIsDividedBySemicolons)
{
    const DesktopEntry entry = read("OnlyShowIn=GNOME;A\\;B;X\\\\\nNotShowIn=KDE\n");
    EXPECT_EQ(entry.onlyShowIn, (QStringList{u"GNOME"_s, u"A;B"_s, u"X\\"_s}));
    EXPECT_EQ(entry.notShowIn, QStringList{u"KDE"_s});
}

TEST(DesktopEntry, theFirstDesktopThatIsNamedDecidesWhetherItIsShown)
{
    const DesktopEntry plain = read("Name=a\n");
    EXPECT_TRUE(plain.isShownIn({}));
    EXPECT_TRUE(plain.isShownIn({u"GNOME"_s}));
    const DesktopEntry only = read("OnlyShowIn=GNOME;\n");
    EXPECT_TRUE(only.isShownIn({u"ubuntu"_s, u"GNOME"_s}));
    EXPECT_FALSE(only.isShownIn({u"KDE"_s}));
    EXPECT_FALSE(only.isShownIn({}));
    const DesktopEntry except = read("NotShowIn=KDE;\n");
    EXPECT_FALSE(except.isShownIn({u"KDE"_s}));
    EXPECT_TRUE(except.isShownIn({}));
    const DesktopEntry both = read("OnlyShowIn=ubuntu;\nNotShowIn=GNOME;\n");
    EXPECT_TRUE(both.isShownIn({u"ubuntu"_s, u"GNOME"_s}));
    EXPECT_FALSE(both.isShownIn({u"GNOME"_s, u"ubuntu"_s}));
}

TEST(DesktopEntry, theCommandLineFallsApartAtItsBlanks)
{
    EXPECT_EQ(running(u"gedit  --new-window\t%U"_s).arguments(),
              (QStringList{u"gedit"_s, u"--new-window"_s, u"%U"_s}));
    EXPECT_EQ(running(u"\"/opt/My Editor/run me\" \"a \\\"b\\\" \\$c\" \"\""_s).arguments(),
              (QStringList{u"/opt/My Editor/run me"_s, u"a \"b\" $c"_s, u""_s}));
    EXPECT_EQ(running(u"\"never closed"_s).arguments(), QStringList());
    EXPECT_EQ(running(QString()).arguments(), QStringList());
}

TEST(DesktopEntry, theProgramStandsBehindWhatSetsItsEnvironment)
{
    EXPECT_EQ(running(u"/usr/bin/gedit %U"_s).program(), u"/usr/bin/gedit"_s);
    EXPECT_EQ(running(u"env BAMF_DESKTOP_FILE_HINT=/var/x.desktop /snap/bin/firefox %u"_s).program(),
              u"/snap/bin/firefox"_s);
    EXPECT_EQ(running(u"/usr/bin/env -i LANG=C krita"_s).program(), u"krita"_s);
    EXPECT_EQ(running(u"env"_s).program(), QString());
    EXPECT_EQ(running(QString()).program(), QString());
}

TEST(MessageLanguages, areThoseOfTheEnvironment)
{
    const MessageSettings settings;
    settings.all.set("");
    settings.lang.set("de_DE.UTF-8");
    EXPECT_EQ(messageLanguages(), (QStringList{u"de_DE"_s, u"de"_s}));
    settings.messages.set("sr_RS.UTF-8@latin");
    EXPECT_EQ(messageLanguages(), (QStringList{u"sr_RS@latin"_s, u"sr_RS"_s, u"sr@latin"_s, u"sr"_s}));
    settings.all.set("fr");
    EXPECT_EQ(messageLanguages(), QStringList{u"fr"_s});
}

TEST(MessageLanguages, theListOfLanguagesComesBeforeTheLocale)
{
    const MessageSettings settings;
    settings.all.set("fr_FR.UTF-8");
    settings.language.set("de_AT:it");
    EXPECT_EQ(messageLanguages(), (QStringList{u"de_AT"_s, u"de"_s, u"it"_s}));
    settings.language.set(":de_DE:de_AT:de:");
    EXPECT_EQ(messageLanguages(), (QStringList{u"de_DE"_s, u"de"_s, u"de_AT"_s})) << "each one once";
    for (const char* empty : {"", ":"}) {
        settings.language.set(empty);
        EXPECT_EQ(messageLanguages(), (QStringList{u"fr_FR"_s, u"fr"_s})) << empty;
    }
}

TEST(MessageLanguages, theListHoldsInTheLocaleOfMachinesAsForTheWindow)
{
    const MessageSettings settings;
    settings.language.set("de");
    EXPECT_EQ(messageLanguages(), QStringList{u"de"_s}) << "no locale";
    for (const char* locale : {"C", "C.UTF-8", "POSIX"}) {
        settings.all.set(locale);
        EXPECT_EQ(messageLanguages(), QStringList{u"de"_s}) << locale;
    }
}

TEST(MessageLanguages, nothingComesAfterEnglishInWhichANameWithoutALanguageIs)
{
    const MessageSettings settings;
    settings.language.set("en_GB:de");
    EXPECT_EQ(messageLanguages(), (QStringList{u"en_GB"_s, u"en"_s}));
    settings.language.set("fr:en:de");
    EXPECT_EQ(messageLanguages(), (QStringList{u"fr"_s, u"en"_s}));
}

TEST(MessageLanguages, theLocaleOfMachinesHasNone)
{
    const MessageSettings settings;
    EXPECT_EQ(messageLanguages(), QStringList());
    for (const char* locale : {"C", "C.UTF-8", "POSIX"}) {
        settings.all.set(locale);
        EXPECT_EQ(messageLanguages(), QStringList()) << locale;
    }
    settings.language.set("C:de");
    EXPECT_EQ(messageLanguages(), QStringList{u"de"_s});
}

} // namespace keelbright::testing

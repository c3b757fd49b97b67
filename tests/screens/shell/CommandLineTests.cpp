#include "Keelbright/screens/shell/CommandLine.h"

#include "KeelbrightCore/platform/system/ProgramVersion.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using Kind = StartRequest::Kind;

void expectRequest(const QStringList& arguments, const StartRequest& request)
{
    const auto read = readCommandLine(arguments);
    EXPECT_TRUE(read && *read == request) << arguments.join(u' ').toStdString();
}

QString refusalOf(const QStringList& arguments)
{
    const auto read = readCommandLine(arguments);
    return read ? u"accepted"_s : read.error();
}

} // namespace

TEST(CommandLine, withoutArgumentsTheWindowIsAskedFor)
{
    expectRequest({}, {Kind::window, std::nullopt});
}

TEST(CommandLine, knowsItsFourOptions)
{
    expectRequest({u"--version"_s}, {Kind::version, std::nullopt});
    expectRequest({u"--help"_s}, {Kind::help, std::nullopt});
    expectRequest({u"--back-up-now"_s}, {Kind::window, WindowAction::backUpNow});
    expectRequest({u"--storage-browser"_s}, {Kind::window, WindowAction::storageBrowser});
}

TEST(CommandLine, refusesWhatItDoesNotKnowInOneLine)
{
    EXPECT_EQ(refusalOf({u"--force"_s}),
              u"keelbright: unknown argument \"--force\"; keelbright --help lists the options"_s);
    for (const QString& argument : {u"-h"_s, u"--"_s, u"-"_s, u""_s, u"Documents"_s, u"--version=1"_s,
                                    u"back-up-now"_s, u"--Help"_s, u"%1"_s})
        EXPECT_EQ(refusalOf({argument}), u"keelbright: unknown argument \""_s + argument +
                                             u"\"; keelbright --help lists the options"_s);
    EXPECT_FALSE(refusalOf({u"a\nb\r"_s}).contains(u'\n'));
    EXPECT_EQ(refusalOf({u"--version"_s, u"--force"_s}), refusalOf({u"--force"_s}));
}

TEST(CommandLine, takesOneOptionAtATime)
{
    EXPECT_EQ(refusalOf({u"--version"_s, u"--help"_s}), u"keelbright: only one option at a time"_s);
    EXPECT_EQ(refusalOf({u"--back-up-now"_s, u"--back-up-now"_s}),
              u"keelbright: only one option at a time"_s);
}

TEST(CommandLine, passesOverTheIdThatADesktopsSessionAdds)
{
    expectRequest({u"-session"_s, u"10d1_17"_s}, {Kind::window, std::nullopt});
    expectRequest({u"-session"_s, u"10d1_17"_s, u"--help"_s}, {Kind::help, std::nullopt});
    EXPECT_EQ(refusalOf({u"-session"_s}),
              u"keelbright: unknown argument \"-session\"; keelbright --help lists the options"_s);
}

TEST(CommandLine, printsItsVersionInOneLineAndItsHelpInTen)
{
    EXPECT_EQ(versionText(), u"Keel Bright "_s + programVersion());
    const QString help = helpText();
    EXPECT_LE(help.count(u'\n') + 1, 10);
    for (const QString& option : {u"--back-up-now"_s, u"--storage-browser"_s, u"--help"_s, u"--version"_s})
        EXPECT_EQ(help.count(option + u' '), 1) << option.toStdString();
    for (const QString& line : help.split(u'\n'))
        EXPECT_LE(line.size(), 90) << line.toStdString();
}

} // namespace keelbright

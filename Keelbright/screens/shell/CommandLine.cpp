#include "Keelbright/screens/shell/CommandLine.h"

#include "Keelbright/widgets/DisplayText.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// A desktop that opens the windows of its last session again adds this option and an id.
constexpr auto sessionOption = "-session"_L1;

/// Absent for an unknown argument.
std::optional<StartRequest> requestOf(const QString& argument)
{
    if (argument == "--version"_L1)
        return StartRequest{StartRequest::Kind::version, std::nullopt};
    if (argument == "--help"_L1)
        return StartRequest{StartRequest::Kind::help, std::nullopt};
    if (!argument.startsWith("--"_L1))
        return std::nullopt;
    if (const std::optional<WindowAction> action = windowActionNamed(argument.sliced(2)))
        return StartRequest{StartRequest::Kind::window, action};
    return std::nullopt;
}

} // namespace

std::expected<StartRequest, QString> readCommandLine(const QStringList& arguments)
{
    StartRequest request;
    bool hasOption = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments.at(i) == sessionOption && i + 1 < arguments.size()) {
            ++i;
            continue;
        }
        const std::optional<StartRequest> asked = requestOf(arguments.at(i));
        if (!asked)
            return std::unexpected(
                u"keelbright: unknown argument \"%1\"; keelbright --help lists the options"_s.arg(
                    displayText(arguments.at(i))));
        if (hasOption)
            return std::unexpected(u"keelbright: only one option at a time"_s);
        request = *asked;
        hasOption = true;
    }
    return request;
}

QString versionText()
{
    return u"Keel Bright "_s + programVersion();
}

QString helpText()
{
    return u"Usage: keelbright [OPTION]\n"
           "Keeps a plain, readable copy of your folders on a drive, and takes care of the machine.\n"
           "\n"
           "Opens the window; where the program runs already, its window comes to the front.\n"
           "\n"
           "  --back-up-now      go to the check before a backup, which asks before it copies\n"
           "  --storage-browser  show what takes the space\n"
           "  --help             print this and end\n"
           "  --version          print the version and end"_s;
}

} // namespace keelbright

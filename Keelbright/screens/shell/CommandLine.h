#pragma once

#include "Keelbright/screens/shell/WindowAction.h"

#include <QStringList>
#include <expected>

namespace keelbright {

/// What a start of the program is asked for.
struct StartRequest
{
    enum class Kind {
        window,  ///< open the window, or bring that of a running program to the front
        version, ///< print one line and end
        help,    ///< print some ten lines and end
    };

    Kind kind = Kind::window;
    std::optional<WindowAction> action; ///< what the window has to do then

    friend bool operator==(const StartRequest&, const StartRequest&) = default;
};

/// Reads the arguments that follow the program's name. The error is one line for standard error, also
/// where an argument holds a line break.
[[nodiscard]] std::expected<StartRequest, QString> readCommandLine(const QStringList& arguments);

/// "Keel Bright 1.0.0"
[[nodiscard]] QString versionText();

/// Without a line break at its end.
[[nodiscard]] QString helpText();

} // namespace keelbright

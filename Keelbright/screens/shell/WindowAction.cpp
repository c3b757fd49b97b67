#include "Keelbright/screens/shell/WindowAction.h"

namespace keelbright {

using namespace Qt::StringLiterals;

QString nameOf(WindowAction action)
{
    switch (action) {
    case WindowAction::backUpNow:
        return u"back-up-now"_s;
    case WindowAction::storageBrowser:
        return u"storage-browser"_s;
    }
    Q_UNREACHABLE();
}

std::optional<WindowAction> windowActionNamed(const QString& name)
{
    for (const WindowAction action : {WindowAction::backUpNow, WindowAction::storageBrowser}) {
        if (nameOf(action) == name)
            return action;
    }
    return std::nullopt;
}

} // namespace keelbright

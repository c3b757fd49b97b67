#pragma once

#include <QByteArray>
#include <QUuid>

namespace keelbright {

/// A fresh name for a file that is not complete yet: ".<UUID>.tmp". Internal to the platform
/// folder.
[[nodiscard]] inline QByteArray temporaryName()
{
    return "." + QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toUpper() + ".tmp";
}

} // namespace keelbright

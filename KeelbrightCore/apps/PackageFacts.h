#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

namespace keelbright {

/// What is known of an application through the package that it came in.
struct PackageFacts
{
    QString version = {};
    std::optional<qint64> sizeBytes = {};
    std::optional<QDateTime> installed = {}; ///< or last updated; UTC
    /// The command that removes it, for a terminal; empty where the user may move it to the Trash.
    QString removalCommand = {};

    friend bool operator==(const PackageFacts&, const PackageFacts&) = default;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/health/JunkItem.h"

#include <QList>

namespace keelbright {

/// Junk of one kind.
struct JunkCategory
{
    QString id;            ///< stable: "userCaches", "trash"…
    QString title;         ///< for display
    QString icon;          ///< symbolic icon key
    QList<JunkItem> items; ///< never empty in what a scan gives

    /// The sum of the items' sizes.
    [[nodiscard]] qint64 totalBytes() const;
    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const JunkCategory&, const JunkCategory&) = default;
};

} // namespace keelbright

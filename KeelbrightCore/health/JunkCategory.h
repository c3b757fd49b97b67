#pragma once

#include "KeelbrightCore/health/JunkItem.h"

#include <QLatin1StringView>
#include <QList>

namespace keelbright {

/// The identities of the categories that a scan can give.
namespace JunkCategoryID {
inline constexpr QLatin1StringView userCaches{"userCaches"};
inline constexpr QLatin1StringView userLogs{"userLogs"};
inline constexpr QLatin1StringView xcode{"xcode"};
inline constexpr QLatin1StringView iosBackups{"iosBackups"};
inline constexpr QLatin1StringView browserCache{"browserCache"};
inline constexpr QLatin1StringView trash{"trash"};
} // namespace JunkCategoryID

/// Junk of one kind.
struct JunkCategory
{
    QString id;            ///< stable: one of `JunkCategoryID`
    QString title;         ///< for display
    QString icon;          ///< symbolic icon key
    QList<JunkItem> items; ///< never empty in what a scan gives

    /// The sum of the items' sizes.
    [[nodiscard]] qint64 totalBytes() const;
    [[nodiscard]] QString formattedSize() const;

    friend bool operator==(const JunkCategory&, const JunkCategory&) = default;
};

} // namespace keelbright

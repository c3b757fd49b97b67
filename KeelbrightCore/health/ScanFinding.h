#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QUuid>
#include <variant>

namespace keelbright {

/// One verdict of a full scan, and the way to act on it.
struct ScanFinding
{
    enum class Category { junk, apps, storage, backup };
    enum class Severity { low = 0, medium = 1, high = 2 };

    /// Go to the screen that has this display name.
    struct NavigateTo
    {
        QString screen;

        friend bool operator==(const NavigateTo&, const NavigateTo&) = default;
    };

    /// Open in the program that the desktop has for it.
    struct OpenURL
    {
        FileURL url;

        friend bool operator==(const OpenURL&, const OpenURL&) = default;
    };

    using Action = std::variant<NavigateTo, OpenURL>;

    QUuid id = QUuid::createUuid(); ///< not stable across scans
    Category category = Category::backup;
    QString title;
    QString detail;
    qint64 sizeBytes = 0; ///< 0 where there is no size to show
    Action action;
    Severity severity = Severity::low;

    /// Empty where `sizeBytes` is not above 0.
    [[nodiscard]] QString formattedSize() const;
    [[nodiscard]] static QString rawValue(Category category);

    friend bool operator==(const ScanFinding&, const ScanFinding&) = default;
};

} // namespace keelbright

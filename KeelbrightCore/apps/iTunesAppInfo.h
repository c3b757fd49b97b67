#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace keelbright {

/// What the App Store says about an application.
struct iTunesAppInfo
{
    QString appName;
    QString description; ///< never empty
    QString sellerName;  ///< may be empty
    QString genre;       ///< may be empty
    std::optional<double> averageRating;
    std::optional<qint64> ratingCount;
    std::optional<QString> releaseNotes;

    /// Reads the answer of the search service for a name: the first result of that name in any
    /// letter case, else the first of all. Nothing where there is none, or where that one has no
    /// description. The input is not trusted.
    [[nodiscard]] static std::optional<iTunesAppInfo> fromSearchResults(const QByteArray& body,
                                                                        const QString& searchedName);
    friend bool operator==(const iTunesAppInfo&, const iTunesAppInfo&) = default;
};

} // namespace keelbright

#include "KeelbrightCore/apps/iTunesAppInfo.h"

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// One and the same for names that differ in letter case only, or in whether an accent is a
/// character of its own, as in names that come from files.
QString comparable(const QString& name)
{
    return name.toLower().normalized(QString::NormalizationForm_C);
}

const JsonDecoder& bestMatch(const QList<JsonDecoder>& results, const QString& searchedName)
{
    const auto isMatch = [wanted = comparable(searchedName)](const JsonDecoder& result) {
        const auto name = result.string(u"trackName"_s);
        return name && comparable(*name) == wanted;
    };
    const auto found = std::ranges::find_if(results, isMatch);
    return found == results.end() ? results.first() : *found;
}

template <typename T> std::optional<T> valueIfReadable(const Decoded<T>& field)
{
    return field ? std::optional(*field) : std::nullopt;
}

} // namespace

std::optional<iTunesAppInfo> iTunesAppInfo::fromSearchResults(const QByteArray& body,
                                                              const QString& searchedName)
{
    const Decoded<JsonDecoder> answer = decodeJsonObject(body);
    if (!answer)
        return std::nullopt;
    const Decoded<QList<JsonDecoder>> results = answer->objects(u"results"_s);
    if (!results || results->isEmpty())
        return std::nullopt;
    const JsonDecoder& result = bestMatch(*results, searchedName);
    const QString description = result.string(u"description"_s).value_or(QString());
    if (description.isEmpty())
        return std::nullopt;
    return iTunesAppInfo{.appName = result.string(u"trackName"_s).value_or(searchedName),
                         .description = description,
                         .sellerName = result.string(u"sellerName"_s).value_or(QString()),
                         .genre = result.string(u"primaryGenreName"_s).value_or(QString()),
                         .averageRating = valueIfReadable(result.number(u"averageUserRating"_s)),
                         .ratingCount = valueIfReadable(result.integer(u"userRatingCount"_s)),
                         .releaseNotes = valueIfReadable(result.string(u"releaseNotes"_s))};
}

} // namespace keelbright

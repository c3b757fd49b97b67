#include "KeelbrightCore/apps/iTunesAppInfo.h"
#include "tests/fuzz/Fuzzer.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace keelbright {
namespace {

using fuzzing::require;

QString comparable(const QString& name)
{
    return name.toLower().normalized(QString::NormalizationForm_C);
}

bool hasResultOfThatName(const QByteArray& body, const QString& name)
{
    const QJsonArray results = QJsonDocument::fromJson(body).object().value(u"results").toArray();
    return std::any_of(results.begin(), results.end(), [&name](const QJsonValue& result) {
        const QJsonValue found = result.toObject().value(u"trackName");
        return found.isString() && found.toString() == name;
    });
}

} // namespace
} // namespace keelbright

/// The first line of the input is the name of the application, the rest the App Store's answer.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const QByteArray input = fuzzing::bytesOf(data, size);
    const qsizetype end = qMax(qsizetype{0}, input.indexOf('\n'));
    const QString name = QString::fromUtf8(input.first(end));
    const QByteArray body = input.sliced(end);
    const auto info = iTunesAppInfo::fromSearchResults(body, name);
    if (!info)
        return 0;
    require(!info->description.isEmpty(), "there is a description");
    require(iTunesAppInfo::fromSearchResults(body, info->appName).has_value(),
            "what was found is found by its name");
    if (hasResultOfThatName(body, name))
        require(comparable(info->appName) == comparable(name),
                "a result of the very name goes before others");
    return 0;
}

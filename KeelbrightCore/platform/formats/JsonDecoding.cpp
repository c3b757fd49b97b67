#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QJsonDocument>
#include <QJsonParseError>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

std::optional<qint64> wholeNumber(const QJsonValue& value)
{
    // `toInteger` gives its default where there is no whole number: two defaults show which it is.
    const qint64 number = value.toInteger(0);
    if (!value.isDouble() || number != value.toInteger(1))
        return std::nullopt;
    return number;
}

bool isHexDigit(QChar character)
{
    const char16_t unit = character.toLower().unicode();
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f');
}

/// Qt's own reader also accepts braces and other separators, and reports no failure.
std::optional<QUuid> uuidFromText(const QString& text)
{
    constexpr qsizetype length = 36;
    if (text.size() != length)
        return std::nullopt;
    for (qsizetype i = 0; i < length; ++i) {
        const bool isSeparator = i == 8 || i == 13 || i == 18 || i == 23;
        if (isSeparator ? text.at(i) != u'-' : !isHexDigit(text.at(i)))
            return std::nullopt;
    }
    return QUuid::fromString(text);
}

Decoded<QJsonDocument> parse(const QByteArray& text)
{
    QJsonParseError failure;
    QJsonDocument document = QJsonDocument::fromJson(text, &failure);
    if (failure.error != QJsonParseError::NoError)
        return std::unexpected(JsonError{
            {},
            u"is not valid at byte %1: %2"_s.arg(QString::number(failure.offset), failure.errorString())});
    return document;
}

Decoded<QList<JsonDecoder>> objectsOf(const QJsonArray& array, const QString& path)
{
    QList<JsonDecoder> objects;
    objects.reserve(array.size());
    for (const auto element : array) {
        QString elementPath = u"%1[%2]"_s.arg(path, QString::number(objects.size()));
        if (!element.isObject())
            return std::unexpected(JsonError{std::move(elementPath), u"is not an object"_s});
        objects.append(JsonDecoder(element.toObject(), std::move(elementPath)));
    }
    return objects;
}

} // namespace

QString JsonError::localizedDescription() const
{
    if (key.isEmpty())
        return u"The JSON text %1."_s.arg(reason);
    return u"The value \"%1\" %2."_s.arg(key, reason);
}

JsonDecoder::JsonDecoder(QJsonObject object, QString path)
    : m_object(std::move(object))
    , m_path(std::move(path))
{}

QString JsonDecoder::pathOf(const QString& key) const
{
    return m_path.isEmpty() ? key : m_path + u'.' + key;
}

JsonError JsonDecoder::error(const QString& key, const QString& reason) const
{
    return {pathOf(key), m_object.contains(key) ? reason : u"is missing"_s};
}

Decoded<QString> JsonDecoder::string(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isString())
        return std::unexpected(error(key, u"is not a text"_s));
    return value.toString();
}

Decoded<bool> JsonDecoder::boolean(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isBool())
        return std::unexpected(error(key, u"is not true or false"_s));
    return value.toBool();
}

Decoded<qint64> JsonDecoder::integer(const QString& key) const
{
    const std::optional<qint64> number = wholeNumber(m_object.value(key));
    if (!number)
        return std::unexpected(error(key, u"is not a whole number of 64 bits"_s));
    return *number;
}

Decoded<double> JsonDecoder::number(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isDouble())
        return std::unexpected(error(key, u"is not a number"_s));
    return value.toDouble();
}

Decoded<QUuid> JsonDecoder::uuid(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    const std::optional<QUuid> id = uuidFromText(*text);
    if (!id)
        return std::unexpected(error(key, u"is not a UUID"_s));
    return *id;
}

Decoded<FileURL> JsonDecoder::url(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    std::optional<FileURL> location = FileURL::fromAbsoluteString(*text);
    if (!location)
        return std::unexpected(error(key, u"is not a file URL"_s));
    return *std::move(location);
}

Decoded<QDateTime> JsonDecoder::date(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    std::optional<QDateTime> date = DateFormatter::fromIso8601(*text);
    if (!date)
        return std::unexpected(error(key, u"is not an ISO 8601 date"_s));
    return *std::move(date);
}

Decoded<QStringList> JsonDecoder::strings(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isArray())
        return std::unexpected(error(key, u"is not a list"_s));
    const QJsonArray array = value.toArray();
    QStringList texts;
    texts.reserve(array.size());
    for (const auto element : array) {
        if (!element.isString())
            return std::unexpected(
                JsonError{u"%1[%2]"_s.arg(pathOf(key), QString::number(texts.size())), u"is not a text"_s});
        texts.append(element.toString());
    }
    return texts;
}

Decoded<JsonDecoder> JsonDecoder::object(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isObject())
        return std::unexpected(error(key, u"is not an object"_s));
    return JsonDecoder(value.toObject(), pathOf(key));
}

Decoded<QList<JsonDecoder>> JsonDecoder::objects(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isArray())
        return std::unexpected(error(key, u"is not a list"_s));
    return objectsOf(value.toArray(), pathOf(key));
}

bool JsonDecoder::has(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    return !value.isUndefined() && !value.isNull();
}

QStringList JsonDecoder::keys() const
{
    return m_object.keys();
}

Decoded<JsonDecoder> decodeJsonObject(const QByteArray& text)
{
    const Decoded<QJsonDocument> document = parse(text);
    if (!document)
        return std::unexpected(document.error());
    if (!document->isObject())
        return std::unexpected(JsonError{{}, u"is not an object"_s});
    return JsonDecoder(document->object());
}

Decoded<QList<JsonDecoder>> decodeJsonArray(const QByteArray& text)
{
    const Decoded<QJsonDocument> document = parse(text);
    if (!document)
        return std::unexpected(document.error());
    if (!document->isArray())
        return std::unexpected(JsonError{{}, u"is not a list"_s});
    return objectsOf(document->array(), {});
}

QString uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace keelbright

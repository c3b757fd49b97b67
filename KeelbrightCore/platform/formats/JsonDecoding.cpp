#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonParseError>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(JsonError)
};

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
        return std::unexpected(JsonError{{},
                                         Texts::tr("is not valid at byte %1: %2")
                                             .arg(QString::number(failure.offset), failure.errorString())});
    return document;
}

Decoded<QList<JsonDecoder>> objectsOf(const QJsonArray& array, const QString& path)
{
    QList<JsonDecoder> objects;
    objects.reserve(array.size());
    for (const auto element : array) {
        QString elementPath = u"%1[%2]"_s.arg(path, QString::number(objects.size()));
        if (!element.isObject())
            return std::unexpected(JsonError{std::move(elementPath), Texts::tr("is not an object")});
        objects.append(JsonDecoder(element.toObject(), std::move(elementPath)));
    }
    return objects;
}

} // namespace

QString JsonError::localizedDescription() const
{
    if (key.isEmpty())
        return Texts::tr("The JSON text %1.").arg(reason);
    return Texts::tr("The value \"%1\" %2.").arg(key, reason);
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
    return {pathOf(key), m_object.contains(key) ? reason : Texts::tr("is missing")};
}

Decoded<QString> JsonDecoder::string(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isString())
        return std::unexpected(error(key, Texts::tr("is not a text")));
    return value.toString();
}

Decoded<bool> JsonDecoder::boolean(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isBool())
        return std::unexpected(error(key, Texts::tr("is not true or false")));
    return value.toBool();
}

Decoded<qint64> JsonDecoder::integer(const QString& key) const
{
    const std::optional<qint64> number = wholeNumber(m_object.value(key));
    if (!number)
        return std::unexpected(error(key, Texts::tr("is not a whole number of 64 bits")));
    return *number;
}

Decoded<double> JsonDecoder::number(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isDouble())
        return std::unexpected(error(key, Texts::tr("is not a number")));
    return value.toDouble();
}

Decoded<QUuid> JsonDecoder::uuid(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    const std::optional<QUuid> id = uuidFromText(*text);
    if (!id)
        return std::unexpected(error(key, Texts::tr("is not a UUID")));
    return *id;
}

Decoded<FileURL> JsonDecoder::url(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    std::optional<FileURL> location = FileURL::fromAbsoluteString(*text);
    if (!location)
        return std::unexpected(error(key, Texts::tr("is not a file URL")));
    return *std::move(location);
}

Decoded<QDateTime> JsonDecoder::date(const QString& key) const
{
    const Decoded<QString> text = string(key);
    if (!text)
        return std::unexpected(text.error());
    std::optional<QDateTime> date = DateFormatter::fromIso8601(*text);
    if (!date)
        return std::unexpected(error(key, Texts::tr("is not an ISO 8601 date")));
    return *std::move(date);
}

Decoded<QStringList> JsonDecoder::strings(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isArray())
        return std::unexpected(error(key, Texts::tr("is not a list")));
    const QJsonArray array = value.toArray();
    QStringList texts;
    texts.reserve(array.size());
    for (const auto element : array) {
        if (!element.isString())
            return std::unexpected(JsonError{u"%1[%2]"_s.arg(pathOf(key), QString::number(texts.size())),
                                             Texts::tr("is not a text")});
        texts.append(element.toString());
    }
    return texts;
}

Decoded<JsonDecoder> JsonDecoder::object(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isObject())
        return std::unexpected(error(key, Texts::tr("is not an object")));
    return JsonDecoder(value.toObject(), pathOf(key));
}

Decoded<QList<JsonDecoder>> JsonDecoder::objects(const QString& key) const
{
    const QJsonValue value = m_object.value(key);
    if (!value.isArray())
        return std::unexpected(error(key, Texts::tr("is not a list")));
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
        return std::unexpected(JsonError{{}, Texts::tr("is not an object")});
    return JsonDecoder(document->object());
}

Decoded<QList<JsonDecoder>> decodeJsonArray(const QByteArray& text)
{
    const Decoded<QJsonDocument> document = parse(text);
    if (!document)
        return std::unexpected(document.error());
    if (!document->isArray())
        return std::unexpected(JsonError{{}, Texts::tr("is not a list")});
    return objectsOf(document->array(), {});
}

QString uuidText(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

} // namespace keelbright

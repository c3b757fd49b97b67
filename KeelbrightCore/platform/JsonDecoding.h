#pragma once

#include "KeelbrightCore/platform/FileURL.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>
#include <QUuid>
#include <expected>
#include <functional>
#include <optional>

namespace keelbright {

/// Why a JSON text could not be read as a record.
struct JsonError
{
    QString key; ///< the key at fault, with its parents ("lastReport.startedAt"); empty for the text itself
    QString reason; ///< a plain English reason

    [[nodiscard]] QString localizedDescription() const;
    friend bool operator==(const JsonError&, const JsonError&) = default;
};

template <typename T> using Decoded = std::expected<T, JsonError>;

/// Reads the fields of one JSON object strictly: a missing key or a value of another type is an
/// error that names the key; unknown keys are ignored.
class JsonDecoder
{
public:
    explicit JsonDecoder(QJsonObject object, QString path = {});

    [[nodiscard]] Decoded<QString> string(const QString& key) const;
    [[nodiscard]] Decoded<bool> boolean(const QString& key) const;
    /// A whole number within the 64 bits.
    [[nodiscard]] Decoded<qint64> integer(const QString& key) const;
    [[nodiscard]] Decoded<QUuid> uuid(const QString& key) const;
    [[nodiscard]] Decoded<FileURL> url(const QString& key) const;
    [[nodiscard]] Decoded<QDateTime> date(const QString& key) const;
    [[nodiscard]] Decoded<QStringList> strings(const QString& key) const;
    [[nodiscard]] Decoded<JsonDecoder> object(const QString& key) const;
    [[nodiscard]] Decoded<QList<JsonDecoder>> objects(const QString& key) const;
    /// Whether the key is present with a value other than null.
    [[nodiscard]] bool has(const QString& key) const;
    [[nodiscard]] QStringList keys() const;

private:
    [[nodiscard]] Decoded<QJsonValue> value(const QString& key) const;
    [[nodiscard]] JsonError error(const QString& key, const QString& reason) const;
    QJsonObject m_object;
    QString m_path;
};

/// The object or the array at the top of a UTF-8 JSON text.
[[nodiscard]] Decoded<JsonDecoder> decodeJsonObject(const QByteArray& text);
[[nodiscard]] Decoded<QList<JsonDecoder>> decodeJsonArray(const QByteArray& text);

/// The text form of a UUID in every JSON file: upper case, hyphens, no braces.
[[nodiscard]] QString uuidText(const QUuid& id);

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>
#include <QUuid>
#include <expected>
#include <optional>

namespace keelbright {

/// Why a JSON text could not be read as a record.
struct JsonError
{
    /// The key at fault with its parents, "lastReport.startedAt" or "customSources[1].url"; empty
    /// for the text itself.
    QString key;
    /// What is wrong with it, to be read after its name: "is missing", "is not a text".
    QString reason;

    /// One plain English sentence.
    [[nodiscard]] QString localizedDescription() const;
    friend bool operator==(const JsonError&, const JsonError&) = default;
};

template <typename T> using Decoded = std::expected<T, JsonError>;

/// Reads the fields of one JSON object strictly: a missing key or a value of another type is an
/// error that names the key; unknown keys are ignored. For a value that may be absent, `has` is asked
/// first: it takes a null for absent, while the readers take it for a value of another type.
class JsonDecoder
{
public:
    /// `path` is the object's own place in the text, empty at the top.
    explicit JsonDecoder(QJsonObject object, QString path = {});

    [[nodiscard]] Decoded<QString> string(const QString& key) const;
    [[nodiscard]] Decoded<bool> boolean(const QString& key) const;
    /// A whole number within the 64 bits, exact.
    [[nodiscard]] Decoded<qint64> integer(const QString& key) const;
    [[nodiscard]] Decoded<double> number(const QString& key) const;
    /// The hyphenated text form in either letter case.
    [[nodiscard]] Decoded<QUuid> uuid(const QString& key) const;
    /// A `file:///` text.
    [[nodiscard]] Decoded<FileURL> url(const QString& key) const;
    /// An ISO 8601 text.
    [[nodiscard]] Decoded<QDateTime> date(const QString& key) const;
    [[nodiscard]] Decoded<QStringList> strings(const QString& key) const;
    [[nodiscard]] Decoded<JsonDecoder> object(const QString& key) const;
    [[nodiscard]] Decoded<QList<JsonDecoder>> objects(const QString& key) const;
    /// Whether the key is present with a value other than null.
    [[nodiscard]] bool has(const QString& key) const;
    [[nodiscard]] QStringList keys() const;

    /// The error of a value that has the right type but makes no sense.
    [[nodiscard]] JsonError error(const QString& key, const QString& reason) const;

private:
    [[nodiscard]] QString pathOf(const QString& key) const;
    QJsonObject m_object;
    QString m_path;
};

/// The object at the top of a UTF-8 JSON text, or the objects of the array there. Nesting deeper
/// than 1,024 is refused.
[[nodiscard]] Decoded<JsonDecoder> decodeJsonObject(const QByteArray& text);
[[nodiscard]] Decoded<QList<JsonDecoder>> decodeJsonArray(const QByteArray& text);

/// The first of the fields that could not be read; nothing where all could.
template <typename... T> [[nodiscard]] std::optional<JsonError> firstError(const Decoded<T>&... fields)
{
    std::optional<JsonError> first;
    const auto look = [&first](const auto& field) {
        if (!first && !field)
            first = field.error();
    };
    (look(fields), ...);
    return first;
}

/// Reads each object with `Record::fromJson`; the first failure is the result.
template <typename Record>
[[nodiscard]] Decoded<QList<Record>> recordsFromJson(const QList<JsonDecoder>& objects)
{
    QList<Record> records;
    records.reserve(objects.size());
    for (const JsonDecoder& object : objects) {
        auto record = Record::fromJson(object);
        if (!record)
            return std::unexpected(std::move(record).error());
        records.append(*std::move(record));
    }
    return records;
}

/// The text form of a UUID in every JSON file: upper case, hyphens, no braces.
[[nodiscard]] QString uuidText(const QUuid& id);

} // namespace keelbright

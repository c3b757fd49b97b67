#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QVariantMap>
#include <optional>

namespace keelbright {

/// Reads property lists, XML or binary. The input is not trusted.
namespace PropertyList {

inline constexpr qint64 maximumBytes = qint64{16} * 1024 * 1024;
inline constexpr int maximumDepth = 512; ///< dictionaries and arrays within each other
inline constexpr qint64 maximumValues = 1'000'000;

/// The dictionary at the top of the data; nothing where it is no property list, its top is no
/// dictionary, it is larger than `maximumBytes`, nested deeper than `maximumDepth` or holds more
/// than `maximumValues` (a value that a binary list refers to twice counts twice). If a key is
/// there twice, the last one counts. Values are QString, bool, qint64, double (also for a whole number
/// that needs more than 64 bits), QDateTime (UTC), QByteArray, QVariantList and QVariantMap.
[[nodiscard]] std::optional<QVariantMap> dictionary(const QByteArray& data);
/// As above, from a regular file.
[[nodiscard]] std::optional<QVariantMap> dictionaryAt(const FileURL& url);

} // namespace PropertyList
} // namespace keelbright

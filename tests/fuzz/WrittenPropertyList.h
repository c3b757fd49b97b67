#pragma once

#include <QByteArray>
#include <QVariant>

namespace keelbright::fuzzing {

/// The number of values: the top one and all values inside it.
[[nodiscard]] qint64 valueCount(const QVariant& value);
/// The deepest nesting of lists and dictionaries.
[[nodiscard]] int depth(const QVariant& value);

/// The value as a property list in one of the two forms. Different values give different texts, except
/// that the XML form cuts dates to seconds.
[[nodiscard]] QByteArray writtenAsXml(const QVariant& value);
[[nodiscard]] QByteArray writtenAsBinary(const QVariant& value);

} // namespace keelbright::fuzzing

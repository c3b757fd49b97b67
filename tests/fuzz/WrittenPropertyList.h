#pragma once

#include <QByteArray>
#include <QVariant>

namespace keelbright::fuzzing {

/// How many values there are, the one at the top and everything inside.
[[nodiscard]] qint64 valueCount(const QVariant& value);
/// How many lists and dictionaries lie within each other at the deepest place.
[[nodiscard]] int depth(const QVariant& value);

/// The value as a property list of each form; two values that differ never look alike. Of a date
/// the XML form keeps the seconds.
[[nodiscard]] QByteArray writtenAsXml(const QVariant& value);
[[nodiscard]] QByteArray writtenAsBinary(const QVariant& value);

} // namespace keelbright::fuzzing

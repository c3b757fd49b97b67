#pragma once

#include <QByteArray>
#include <QVariant>
#include <optional>

namespace keelbright::BinaryPropertyList {

/// The value at the top of a binary property list, within the bounds of `PropertyList`; nothing
/// where the data is none. Internal to the platform folder.
[[nodiscard]] std::optional<QVariant> read(const QByteArray& data);

} // namespace keelbright::BinaryPropertyList

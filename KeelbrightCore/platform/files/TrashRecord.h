#pragma once

#include <QByteArray>
#include <QDateTime>

namespace keelbright::TrashRecord {

inline constexpr QByteArrayView suffix(".trashinfo");

/// The name that an item gets in the Trash at the given attempt, the first being 1: its own, then
/// with a number in front of its extension ("photo 2.jpg"), later with a random one. Shortened so
/// that the name of its record has at most `longestRecord` bytes, and never within a character.
[[nodiscard]] QByteArray itemName(const QByteArray& name, int attempt, qsizetype longestRecord);

/// After so many names that were all taken the move fails.
inline constexpr int attempts = 100;

/// The content of a record: where the item came from, percent-encoded to the byte, and when it
/// went, in the zone of `date`.
[[nodiscard]] QByteArray content(const QByteArray& path, const QDateTime& date);

} // namespace keelbright::TrashRecord

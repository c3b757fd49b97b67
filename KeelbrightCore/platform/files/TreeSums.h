#pragma once

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <QList>
#include <functional>
#include <optional>

namespace keelbright {

class FileManager;

/// What a walk has counted in one tree.
struct TreeSum
{
    qint64 entries = 0;
    qint64 bytes = 0; ///< stays at the largest value instead of overflowing
    friend bool operator==(const TreeSum&, const TreeSum&) = default;
};

/// The bytes that the entry just delivered adds to the sum of its tree; nothing where the entry is
/// not counted. May keep the walk out of a folder with `skipDescendants`. Several threads call it at
/// the same time, each with a walk of its own.
using EntryBytes = std::function<std::optional<qint64>(DirectoryEnumerator& walk)>;

/// Walks all trees and adds up what `bytesOf` gives; the sums come in the order of the trees. A tree
/// that can't be opened has an empty sum, and what can't be read, or finds no memory, adds nothing.
///
/// A large tree is shared out folder by folder: the calling thread works too, beside threads of this
/// call, which have its priority and have ended when it returns. Open files and memory are bounded by
/// the number of threads, however many files and levels there are.
///
/// Once `cancellation` is cancelled, it returns what has been counted so far as soon as the system
/// calls under way have returned. Blocks; any thread.
[[nodiscard]] QList<TreeSum> sumTrees(const QList<FileURL>& trees, DirectoryEnumerator::Options options,
                                      const EntryBytes& bytesOf, const FileManager& fm,
                                      const Cancellation& cancellation = Cancellation());

} // namespace keelbright

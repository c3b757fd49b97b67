#pragma once

#include "KeelbrightCore/health/JunkCategory.h"

#include <QFuture>

namespace keelbright::JunkScanner {

/// Finds the caches, logs, leftovers of developing, device backups and the Trash of the user, where
/// `MachinePlaces` says that they lie. Gives the categories that have items, the largest first, each with its
/// items.
///
/// Only lists and measures; a place that can't be read yields no items. Never fails; returns at
/// once, from any thread. One walk on a thread of its own, at the utility priority, that holds
/// nothing of its caller; the future finishes there. An object of the main thread that may be destroyed
/// meanwhile listens with a `QFutureWatcher`.
[[nodiscard]] QFuture<QList<JunkCategory>> scan();

} // namespace keelbright::JunkScanner

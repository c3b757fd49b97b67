#pragma once

#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <QList>

#include <functional>
#include <span>
#include <string_view>

namespace keelbright {

/// The rule of what a backup leaves out, and the estimate that follows from it.
namespace FileScanner {

struct ScanResult
{
    qint64 fileCount = 0;
    qint64 totalBytes = 0; ///< logical sizes; stays at the largest value instead of overflowing
    friend bool operator==(const ScanResult&, const ScanResult&) = default;
};

/// Names of folders that are left out with everything below them; case-sensitive.
[[nodiscard]] std::span<const std::string_view> skippedFolderNames();
/// Extensions without the dot that are left out; case-insensitive.
[[nodiscard]] std::span<const std::string_view> skippedExtensions();

/// Whether the enumerator's current entry is left out. Where it is a folder that is left out by its
/// name, the enumerator skips its descendants.
[[nodiscard]] bool shouldSkip(DirectoryEnumerator& enumerator);

/// Whether the enumerator's current folder is left out, with all below it, for another reason than the
/// rule. Several threads call it at the same time, each with a walk of its own.
using LeftOut = std::function<bool(const DirectoryEnumerator& folder)>;

/// What becomes of an entry below a source in a backup.
enum class Handling {
    leftOut, ///< without a count, and all below it: what the backup itself writes
    skipped, ///< by the rule, and counted
    folder,  ///< or a link to one: made only where something is copied into it
    copied,
};

/// The rule for one entry after the other, when they are copied, counted or compared: `isLeftOut` is asked
/// about folders, then `shouldSkip`. Keeps the enumerator out of what is left out. Where memory runs out it
/// throws, and may be called again for the same entry.
[[nodiscard]] Handling handlingOf(DirectoryEnumerator& enumerator, const LeftOut& isLeftOut);

/// Whether a scan reads sizes. Without them a large tree is counted in half the time.
enum class Sizes { read, leftOut };

/// Counts the regular files that a backup of the enabled sources would copy; what can't be read
/// adds nothing. Reads metadata only. `totalBytes` stays 0 where sizes are left out. Blocks; any thread.
/// Ends early, with what it has counted so far, once it is cancelled.
[[nodiscard]] ScanResult scan(const QList<BackupSource>& sources, Sizes sizes = Sizes::read,
                              const Cancellation& cancellation = Cancellation(),
                              const LeftOut& isLeftOut = {});

} // namespace FileScanner
} // namespace keelbright

#pragma once

#include <QByteArray>
#include <expected>

namespace keelbright {

/// Writes a record of the Trash under a name that nobody has; EEXIST where the name is taken. Of two
/// programs that want one name at the same moment only one gets it, on every file system. Record and
/// name are on the drive afterwards. Internal to the platform folder. A failure is the `errno` value,
/// and leaves no record.
[[nodiscard]] std::expected<void, int> writeTrashRecord(int folder, const QByteArray& name,
                                                        const QByteArray& content);

/// Whether the record of that name has exactly this content.
[[nodiscard]] bool isTrashRecord(int folder, const QByteArray& name, const QByteArray& content);

} // namespace keelbright

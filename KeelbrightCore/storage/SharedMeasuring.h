#pragma once

#include "KeelbrightCore/platform/files/FileManager.h"

#include <QList>

class QThreadPool;

namespace keelbright {

/// Measures several folders at once. Internal to the storage folder.
///
/// The calling thread works too, with whatever threads of `helpers` are idle at the moment, so that
/// it may itself belong to that pool and never waits for a thread that is not at work. A worker that
/// runs out of folders is given a part of the folder that another one is in: one huge folder among
/// small ones keeps all of them busy. The sums are those of `FolderSizeService::recursiveSize`, in
/// the order of `folders`.
[[nodiscard]] QList<qint64> measureTogether(const QList<FileURL>& folders, const FileManager& fm,
                                            QThreadPool& helpers);

} // namespace keelbright

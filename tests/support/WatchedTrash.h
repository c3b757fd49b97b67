#pragma once

#include "tests/support/HeldFileManager.h"

#include <QStringList>
#include <cerrno>

namespace keelbright::testing {

/// The test's machine that can refuse to move an item, and remembers what it was asked to move.
class WatchedTrash : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    std::expected<TrashedItem, FileError> trashItem(const FileURL& url) override
    {
        asked.append(url.lastPathComponent());
        if (refused.contains(url.lastPathComponent()))
            return std::unexpected(
                FileError::fromCode(FileError::Operation::trashed, url.lastPathComponent(), EACCES));
        return HeldFileManager::trashItem(url);
    }

    QStringList refused;
    QStringList asked;
};

} // namespace keelbright::testing

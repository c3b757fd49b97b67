#pragma once

#include "tests/support/SandboxFileManager.h"

#include <QMutex>
#include <QSemaphore>
#include <optional>

namespace keelbright::testing {

/// The test's machine, which can hold background work at a look into a folder and counts such looks.
/// A look is a listing, a question for the capacity, or the return of an item from the Trash to the place.
class HeldFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;
    /// Lets go and waits for the background work, which still uses this object.
    ~HeldFileManager() override;

    /// Does what the destructor does; for the destructor of a class that answers looks itself.
    void finish();

    /// The next look at this place, and only that one, waits until `letGo`; one at a time.
    void holdNextLookAt(const FileURL& place);
    /// Waits until a thread is held; false where none came within some seconds.
    [[nodiscard]] bool waitUntilHeld();
    void letGo();

    [[nodiscard]] qsizetype looksAt(const FileURL& place) const;

    [[nodiscard]] std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override;
    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override;
    [[nodiscard]] std::expected<void, FileError> restoreItem(const TrashedItem& item) override;

private:
    void look(const FileURL& place) const;

    mutable QMutex m_mutex; ///< for the two members below
    mutable std::optional<FileURL> m_placeToHold;
    mutable QList<FileURL> m_looks;
    mutable QSemaphore m_held;
    mutable QSemaphore m_go;
};

} // namespace keelbright::testing

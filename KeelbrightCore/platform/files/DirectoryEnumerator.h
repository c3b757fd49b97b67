#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QFlags>
#include <QList>
#include <functional>
#include <memory>
#include <optional>

namespace keelbright {

/// What a directory entry is, links not followed.
enum class EntryType : quint8 { regularFile, directory, symbolicLink, other };

/// Walks everything below a folder, parents before their children, in the file system's order.
///
/// Works relative to open folders (a bounded number of them), so that neither depth nor path
/// length has a limit; never follows a link below its root. An entry's type comes from the
/// directory itself and its size is read only when asked for. A folder that can't be opened is
/// delivered like any other and then passed over; the error handler is called with it.
///
/// The entry's properties are valid until the next call of `next`. One thread at a time.
class DirectoryEnumerator
{
public:
    enum class Option {
        skipsHiddenFiles = 1,        ///< names with a leading dot are not delivered and not entered
        skipsPackageDescendants = 2, ///< a package below the root is delivered, not entered
        followsRootLink = 4,         ///< a root that is a link to a folder is walked
        keepsAccessTimes = 8,        ///< of folders, where the system allows that to the user
    };
    Q_DECLARE_FLAGS(Options, Option)

    using ErrorHandler = std::function<void(const FileURL& folder, const FileError& error)>;

    /// Opens the root; fails where it is not a folder or can't be opened. What the system shows in two places
    /// is walked in one of them.
    [[nodiscard]] static std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    open(const FileURL& root, Options options);
    /// The same with other places to pass over: they are delivered and not entered.
    [[nodiscard]] static std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    open(const FileURL& root, Options options, const QList<FileURL>& passedOver);
    ~DirectoryEnumerator();
    DirectoryEnumerator(const DirectoryEnumerator&) = delete;
    DirectoryEnumerator& operator=(const DirectoryEnumerator&) = delete;

    /// Called for a folder below the root that can't be opened, or whose listing breaks off.
    void setErrorHandler(ErrorHandler handler);

    /// Goes to the next entry; false when there is none. Where memory runs out it throws, and goes on from
    /// there when it is called again.
    [[nodiscard]] bool next();
    /// Keeps the walk out of the folder just delivered; does nothing for any other entry.
    void skipDescendants();
    /// A new walk over the folder just delivered, for another thread to take; this walk then passes
    /// the folder over. The new one has the same options, no error handler, and paths relative to
    /// its own root. Null, and no change, where this walk would not enter the entry or where the
    /// folder can't be opened.
    [[nodiscard]] std::unique_ptr<DirectoryEnumerator> branchOff();

    [[nodiscard]] QByteArrayView name() const;
    [[nodiscard]] EntryType type() const;
    /// The number of the entry in its file system, as the folder has it; on most file systems what was
    /// written one after the other has rising numbers.
    [[nodiscard]] quint64 number() const;
    /// Whether the entry is a folder or a link that leads to one.
    [[nodiscard]] bool isDirectoryFollowingLinks() const;
    /// The logical size in bytes of anything but a folder (of a link: of the link itself);
    /// nothing where it can't be read.
    [[nodiscard]] std::optional<qint64> fileSize() const;
    /// The path of the entry's folder below the root; empty at the root, no slash at either end.
    [[nodiscard]] QByteArrayView relativeFolder() const;
    [[nodiscard]] FileURL url() const;
    /// The open folder that holds the entry, for calls of the `*at` family; stays owned here.
    [[nodiscard]] int folderDescriptor() const;

private:
    class Walk;
    explicit DirectoryEnumerator(std::unique_ptr<Walk> walk);
    std::unique_ptr<Walk> m_walk;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(DirectoryEnumerator::Options)

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include <QList>
#include <QSemaphore>
#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace keelbright {

/// A copy that is to be read: where it lies below the root of its tree.
struct CheckedItem
{
    QByteArray folder;
    QByteArray name;
    quint64 number = 0; ///< in its file system

    /// Relative to the root of the tree.
    [[nodiscard]] QByteArray path() const { return folder.isEmpty() ? name : folder + '/' + name; }
};

/// What is read of a copy: one `begin`, its pieces in order, one `end`.
struct CopyPiece
{
    enum class Kind {
        begin, ///< with `status`; of anything but a regular file, and where `code` is set, nothing follows
        data,  ///< with `buffer`
        hole,  ///< zeros that take no room on the drive
        end,   ///< with `code`, and with `isFromDrive`
    };

    Kind kind = Kind::end;
    int code = 0; ///< the `errno` value where it could not be opened or read; 0 for none
    ItemStatus status;
    qint64 offset = 0;
    qint64 size = 0;
    std::unique_ptr<PieceBuffer> buffer;
    bool isFromDrive = true;
};

/// Reads copies from their drive ahead of their comparison, so that the drive is always at work and always
/// with one file at a time: a disk whose heads move between two files is many times slower.
///
/// One thread calls; a thread of its own reads, at the priority of the caller or lower. `next` waits for the
/// drive for as long as the drive takes; so does the destructor, for the read that is under way. Where memory
/// runs out for opening a copy, its `begin` has the code ENOMEM, and the next copy is read.
class CopyReadAhead
{
public:
    /// The items are read in their order. The tree outlives this and is not used by anybody else meanwhile.
    CopyReadAhead(ReadOnlyTree& tree, QList<CheckedItem> items);
    ~CopyReadAhead();
    CopyReadAhead(const CopyReadAhead&) = delete;
    CopyReadAhead& operator=(const CopyReadAhead&) = delete;

    /// The next piece. To be called exactly until the last item has ended.
    [[nodiscard]] CopyPiece next();
    /// Gives the memory of a piece back, to be read into again.
    void giveBack(std::unique_ptr<PieceBuffer> buffer);

private:
    /// How many pieces wait at most, those without memory among them.
    static constexpr size_t maximumWaiting = 64;

    void readAll();
    void readItem(const CheckedItem& item);
    [[nodiscard]] int readPieces(ReadOnlyFile& file);
    /// Null once this is to stop.
    [[nodiscard]] std::unique_ptr<PieceBuffer> takeBuffer();
    void push(CopyPiece piece);

    ReadOnlyTree& m_tree;
    const QList<CheckedItem> m_items;
    std::mutex m_mutex; ///< for the members below
    std::condition_variable m_changed;
    // Both have their room from the beginning, so that handing over a piece needs no memory.
    std::array<CopyPiece, maximumWaiting> m_pieces; ///< a ring, in which `m_waiting` follow from `m_first` on
    std::vector<std::unique_ptr<PieceBuffer>> m_freeBuffers;
    size_t m_first = 0;
    size_t m_waiting = 0;
    std::atomic<bool> m_stops = false;
    QSemaphore m_ended;
};

} // namespace keelbright

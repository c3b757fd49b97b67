#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/ItemStatus.h"

#include <cstdlib>
#include <memory>

namespace keelbright {

/// Memory for a piece of a file. Lies so that a drive can read straight into it.
class PieceBuffer
{
public:
    /// In bytes.
    static constexpr qint64 size = qint64{1024} * 1024;

    PieceBuffer();

    [[nodiscard]] char* data() { return m_memory.get(); }

    [[nodiscard]] const char* data() const { return m_memory.get(); }

private:
    struct Free
    {
        void operator()(char* memory) const { std::free(memory); }
    };

    std::unique_ptr<char, Free> m_memory;
};

/// A regular file that is open for reading. Reading leaves its access time as it is, where the system allows
/// that to the user. One thread at a time; may pass from thread to thread. A failure is the `errno` value.
class ReadOnlyFile
{
public:
    /// An entry of an open folder. EISDIR for a folder and ELOOP for a link; EOPNOTSUPP for anything else
    /// that is no regular file, which is not even opened.
    [[nodiscard]] static std::expected<ReadOnlyFile, int> open(int folder, const char* name);

    /// What the file was when it was opened.
    [[nodiscard]] const ItemStatus& status() const { return m_status; }

    /// What it is now.
    [[nodiscard]] std::expected<ItemStatus, int> currentStatus() const;

    /// From now on what is read comes from the drive and not from the memory of the system. Where neither
    /// way to that works, `isReadFromDrive` says so.
    void readFromDrive();

    /// Whether everything that was read since `readFromDrive` has come from the drive of the file system;
    /// the file system itself may be elsewhere.
    [[nodiscard]] bool isReadFromDrive() const { return m_isReadFromDrive; }

    /// Reads what the file holds at `offset`, a multiple of `PieceBuffer::size`, up to a whole piece: the
    /// number of bytes, less than a piece only at the end of the file.
    [[nodiscard]] std::expected<qint64, int> read(qint64 offset, PieceBuffer& piece);

    /// Where the next data begins, at `offset` or after it: the size of the file where only a hole follows.
    /// A hole is a range without room on the drive, which reads as zeros.
    [[nodiscard]] qint64 nextData(qint64 offset) const;

    /// Whether there are holes in it.
    [[nodiscard]] bool hasHoles() const { return m_status.allocated < m_status.size; }

    /// Lets the system begin to read the piece at `offset`.
    void announce(qint64 offset) const;

    /// Lets the status say whether the file changes from now on, also where a program writes to it through
    /// its memory.
    void makeChangesVisible() const;

private:
    ReadOnlyFile(FileDescriptor file, const ItemStatus& status);

    FileDescriptor m_file;
    ItemStatus m_status;
    bool m_isDirect = false;
    bool m_isReadFromDrive = false;
};

} // namespace keelbright

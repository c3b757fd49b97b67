#pragma once

#include "KeelbrightCore/platform/files/FileError.h"

#include <memory>
#include <sys/stat.h>

namespace keelbright {

class Cancellation;

/// Copies the content of a file in the fastest way that both sides support: a shared clone, one
/// read and one write, a copy within the kernel, or a plain loop. Holes stay holes. Remembers
/// what the pair of file systems does not support. Internal to the platform folder; one thread at
/// a time.
class FileContents
{
public:
    FileContents();

    /// Copies all data up to its end, whatever the size says; what can't be read is never made up for by
    /// zeros. Where the size or the change time of the source has changed meanwhile, it is copied again, at
    /// most three times in all; a source that ends before its size says so is read once more. `status`
    /// becomes that of the source at the last copy. `name` is for the error.
    [[nodiscard]] std::expected<void, FileError> copy(int source, int target, struct stat& status,
                                                      const Cancellation& cancellation, QByteArrayView name);

private:
    struct Failure
    {
        FileError::Operation operation;
        int code;
    };

    /// The number of bytes that the source had; more or fewer than its size where that lied.
    using Outcome = std::expected<qint64, Failure>;

    [[nodiscard]] Outcome copyOnce(int source, int target, const struct stat& status,
                                   const Cancellation& cancellation);
    [[nodiscard]] Outcome copyExtent(int source, int target, qint64 count, const Cancellation& cancellation);
    [[nodiscard]] Outcome copyThroughMemory(int source, int target, qint64 count,
                                            const Cancellation& cancellation);
    [[nodiscard]] Outcome copyToEnd(int source, int target, qint64 done, qint64 size,
                                    const Cancellation& cancellation);
    [[nodiscard]] Outcome copySparse(int source, int target, const struct stat& status,
                                     const Cancellation& cancellation);
    [[nodiscard]] Outcome finishSparse(int source, int target, qint64 size, const Cancellation& cancellation);
    [[nodiscard]] Outcome copyPiece(int source, int target, size_t size);
    [[nodiscard]] bool tryClone(int source, int target, const struct stat& status);

    std::unique_ptr<char[]> m_buffer;
    dev_t m_sourceDevice = 0;
    bool m_triesClone = true;
    bool m_triesCopyRange = true;
};

} // namespace keelbright

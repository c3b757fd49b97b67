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

    /// Copies all data. Where the size or the change time of the source has changed meanwhile, it
    /// is copied again, at most three times in all; `status` becomes that of the source at the last
    /// copy. `name` is for the error.
    [[nodiscard]] std::expected<void, FileError> copy(int source, int target, struct stat& status,
                                                      const Cancellation& cancellation, QByteArrayView name);

private:
    struct Failure
    {
        FileError::Operation operation;
        int code;
    };

    using Outcome = std::expected<void, Failure>;

    [[nodiscard]] Outcome copyOnce(int source, int target, const struct stat& status,
                                   const Cancellation& cancellation);
    [[nodiscard]] Outcome copyExtent(int source, int target, qint64 count, const Cancellation& cancellation);
    [[nodiscard]] Outcome copyThroughMemory(int source, int target, qint64 count,
                                            const Cancellation& cancellation);
    [[nodiscard]] Outcome copySparse(int source, int target, const struct stat& status,
                                     const Cancellation& cancellation);
    [[nodiscard]] bool tryClone(int source, int target, const struct stat& status);

    std::unique_ptr<char[]> m_buffer;
    dev_t m_sourceDevice = 0;
    bool m_triesClone = true;
    bool m_triesCopyRange = true;
};

} // namespace keelbright

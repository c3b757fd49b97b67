#pragma once

#include "KeelbrightCore/platform/files/FileError.h"

#include <atomic>
#include <memory>
#include <sys/stat.h>

namespace keelbright {

/// Copies what is inside a file, by the fastest way that both sides allow: a shared clone, one
/// read and one write, a copy within the kernel, or a plain loop. Holes stay holes. Remembers
/// what the pair of file systems refused. Internal to the platform folder; one thread at a time.
class FileContents
{
public:
    FileContents();

    /// Copies all data and makes sure that the source held still meanwhile: where its size or
    /// change time moved, it is copied anew, at most three times in all. `status` is the source's
    /// at the time of the copy that stands. `name` is for the error.
    [[nodiscard]] std::expected<void, FileError> copy(int source, int target, struct stat& status,
                                                      const std::atomic<bool>& stop, QByteArrayView name);

private:
    struct Failure
    {
        FileError::Operation operation;
        int code;
    };

    using Outcome = std::expected<void, Failure>;

    [[nodiscard]] Outcome copyOnce(int source, int target, const struct stat& status,
                                   const std::atomic<bool>& stop);
    [[nodiscard]] Outcome copyExtent(int source, int target, qint64 count, const std::atomic<bool>& stop);
    [[nodiscard]] Outcome copyThroughMemory(int source, int target, qint64 count,
                                            const std::atomic<bool>& stop);
    [[nodiscard]] Outcome copySparse(int source, int target, const struct stat& status,
                                     const std::atomic<bool>& stop);
    [[nodiscard]] bool tryClone(int source, int target, const struct stat& status);

    std::unique_ptr<char[]> m_buffer;
    dev_t m_sourceDevice = 0;
    bool m_triesClone = true;
    bool m_triesCopyRange = true;
};

} // namespace keelbright

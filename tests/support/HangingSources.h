#pragma once

#include "tests/support/SandboxFileManager.h"

#include <QSemaphore>
#include <atomic>

namespace keelbright::testing {

/// The test's machine, on which the first walk that is opened hangs like a drive that does not answer.
class HangingSources : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    /// Waits for the walk that hangs.
    void waitUntilReached() { m_reached.acquire(); }

    void letGo() { m_go.release(); }

    /// How many walks have been asked for.
    [[nodiscard]] int walks() const { return m_walks; }

    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        if (++m_walks == 1) {
            m_reached.release();
            m_go.acquire();
        }
        return SandboxFileManager::enumerator(url, options);
    }

private:
    mutable std::atomic<int> m_walks = 0;
    mutable QSemaphore m_reached;
    mutable QSemaphore m_go;
};

} // namespace keelbright::testing

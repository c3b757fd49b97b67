#pragma once

#include "tests/support/SandboxFileManager.h"

#include <QSemaphore>
#include <atomic>

namespace keelbright::testing {

/// The test's machine, which holds the first run that is about to write its report until it is let go.
class HeldReport : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override
    {
        if (url.nativePath().contains("/Reports/backup-report-") && !m_isHeld.exchange(true))
            m_go.acquire();
        return SandboxFileManager::fileExists(url);
    }

    [[nodiscard]] bool isHeld() const { return m_isHeld; }

    void letGo() { m_go.release(); }

private:
    mutable std::atomic<bool> m_isHeld = false;
    mutable QSemaphore m_go;
};

} // namespace keelbright::testing

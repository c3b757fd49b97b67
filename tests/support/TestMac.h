#pragma once

#include "KeelbrightCore/platform/system/Clock.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/SandboxFileManager.h"

#include <QByteArray>
#include <QLocale>
#include <QTemporaryDir>

namespace keelbright::testing {

/// A whole machine in a temporary folder, standing for the real one while it lives: file manager,
/// home, the folders for configuration and data below it, login shell (/bin/zsh), locale (American
/// English), time zone (Berlin) and clock (2026-03-02 09:05:07 UTC).
class TestMac
{
public:
    TestMac();
    ~TestMac();
    TestMac(const TestMac&) = delete;
    TestMac& operator=(const TestMac&) = delete;

    [[nodiscard]] FileURL root() const { return m_root; }

    [[nodiscard]] FileURL home() const { return m_fileManager.homeDirectory(); }

    [[nodiscard]] SandboxFileManager& fileManager() { return m_fileManager; }

    [[nodiscard]] const SandboxFileManager& fileManager() const { return m_fileManager; }

    /// Writes a file with its folders. `path` is relative to the root of the machine.
    FileURL writeFile(const QByteArray& path, const QByteArray& content) const;
    FileURL makeFolder(const QByteArray& path) const;
    [[nodiscard]] static QByteArray read(const FileURL& url);

    void setTimeZone(const QByteArray& ianaName);
    void setLocale(const QLocale& locale);

    void setNow(const QDateTime& now) { *m_now = now; }

    [[nodiscard]] Clock clock() const;

private:
    QTemporaryDir m_folder;
    FileURL m_root;
    SandboxFileManager m_fileManager;
    FileManagerGuard m_guard;
    QLocale m_previousLocale;
    EnvironmentVariable m_timeZone{"TZ"};
    EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
    EnvironmentVariable m_dataHome{"XDG_DATA_HOME"};
    EnvironmentVariable m_shell{"SHELL"};
    std::shared_ptr<QDateTime> m_now;
};

} // namespace keelbright::testing

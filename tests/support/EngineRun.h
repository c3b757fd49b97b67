#pragma once

#include "KeelbrightCore/backup/BackupEngine.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <functional>
#include <memory>

namespace keelbright::testing {

/// A test's machine with a backup drive, "mira's Mac!" by name, and an engine that runs on it.
class EngineRun
{
public:
    EngineRun();
    ~EngineRun();

    /// A job from these folders to the drive, confirmed two minutes ago by the machine's clock.
    [[nodiscard]] BackupJob job(const QList<FileURL>& folders) const;
    /// Starts the job and turns the event loop until the engine is idle; fails the test after a
    /// minute.
    void run(const BackupJob& job);

    void run(const QList<FileURL>& folders) { run(job(folders)); }

    /// Turns the event loop until the condition holds; fails the test after a minute.
    static void turnUntil(const std::function<bool()>& condition);

    /// A place below `Latest` of the device.
    [[nodiscard]] FileURL latest(const QByteArray& path = {}) const;
    /// A place below "Personal Files".
    [[nodiscard]] FileURL mirrored(const QByteArray& path) const;
    [[nodiscard]] FileURL reports() const;
    /// Sorted paths of everything below a folder.
    [[nodiscard]] static QByteArrayList everythingBelow(const FileURL& folder);

private:
    std::unique_ptr<QCoreApplication> m_application;

public:
    TestMac mac;
    FileURL drive;
    BackupEngine engine;
};

} // namespace keelbright::testing

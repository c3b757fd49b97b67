#pragma once

#include "KeelbrightCore/backup/PreflightService.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace keelbright::testing {

inline std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

/// The test's machine with a destination drive whose free space the test sets.
class DriveFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const override
    {
        if (fails)
            return std::unexpected(
                FileError::fromCode(FileError::Operation::measured, url.lastPathComponent(), EIO));
        return FileSystemCapacity{.totalBytes = 1'000'000'000'000, .freeBytes = freeBytes};
    }

    std::optional<qint64> freeBytes = 500'000'000'000;
    bool fails = false;
};

class PreflightServiceTest : public ::testing::Test
{
protected:
    BackupSource source(const QByteArray& path, bool isEnabled = true) const
    {
        return {QUuid::createUuid(), mac.root().appendingNative(path), isEnabled};
    }

    /// A source folder with one file of `bytes`, all of it a hole.
    BackupSource sourceOfSize(const QByteArray& path, qint64 bytes) const
    {
        const FileURL file = mac.writeFile(path + "/film.mov", "");
        std::filesystem::resize_file(standardPath(file), static_cast<std::uintmax_t>(bytes));
        return source(path);
    }

    PreflightResult run(const QList<BackupSource>& sources) const
    {
        return PreflightService::run(sources, BackupDestination{QUuid::createUuid(), destination});
    }

    TestMac mac;
    DriveFileManager drive{mac.root()};
    FileManagerGuard guard{drive};
    FileURL destination = mac.makeFolder("Volumes/Anchor");
};

inline const QString noValidSource = QStringLiteral("No valid source folders selected.");

} // namespace keelbright::testing

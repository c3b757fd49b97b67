#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/UnprivilegedUser.h"

#include <QScopeGuard>
#include <gtest/gtest.h>

#include <filesystem>

namespace keelbright::testing {

[[nodiscard]] inline std::filesystem::path standardPath(const FileURL& url)
{
    return {url.nativePath().toStdString()};
}

/// A machine with one folder, "Users/mira/Folder", to lay things into.
class StorageFixture : public ::testing::Test
{
protected:
    /// Writes a file of that many bytes below the folder.
    FileURL write(const QByteArray& path, qsizetype bytes) const
    {
        return mac.writeFile("Users/mira/Folder/" + path, QByteArray(bytes, 'x'));
    }

    void makeFolder(const QByteArray& path) const { mac.makeFolder("Users/mira/Folder/" + path); }

    void link(const QByteArray& path, const QByteArray& target) const
    {
        std::filesystem::create_symlink(target.toStdString(), standardPath(at(path)));
    }

    [[nodiscard]] FileURL at(const QByteArray& path) const { return folder.appendingNative(path); }

    /// Lets a plain user pass down to the folder, and gives `path` that mode while the result lives.
    [[nodiscard]] auto withMode(const QByteArray& path, unsigned mode) const
    {
        std::filesystem::permissions(standardPath(mac.root()), std::filesystem::perms(0755));
        const std::filesystem::path changed = standardPath(at(path));
        std::filesystem::permissions(changed, std::filesystem::perms(mode));
        return qScopeGuard(
            [changed] { std::filesystem::permissions(changed, std::filesystem::perms(0755)); });
    }

    TestMac mac;
    FileURL folder = mac.makeFolder("Users/mira/Folder");
};

} // namespace keelbright::testing

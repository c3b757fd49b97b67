#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "tests/support/TestMac.h"

#include <QByteArrayList>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace keelbright::testing {

/// The fixture of tests that copy from "source" to "Latest" on "drive".
class CopyDestinationTest : public ::testing::Test
{
protected:
    using Outcome = std::expected<qint64, FileError>;

    std::unique_ptr<CopyDestination> openMirror()
    {
        auto opened = mac.fileManager().openCopyDestination(drive, "Latest");
        if (!opened) {
            ADD_FAILURE() << opened.error().localizedDescription().toStdString();
            return nullptr;
        }
        return std::move(*opened);
    }

    std::expected<std::unique_ptr<PreparedCopy>, FileError> prepare(CopyDestination& mirror,
                                                                    const DirectoryEnumerator& item)
    {
        const auto plan = mirror.plan(item);
        if (!plan)
            return std::unexpected(plan.error());
        return mirror.makeWorker()->prepare(*plan, cancellation);
    }

    /// Copies the one item of that name that lies directly in the source.
    Outcome copy(CopyDestination& mirror, const QByteArray& name, const QByteArray& folder = {})
    {
        auto items = DirectoryEnumerator::open(source, {});
        while ((*items)->next()) {
            if ((*items)->name() != name)
                continue;
            if (const auto entered = mirror.enterFolder(folder); !entered)
                return std::unexpected(entered.error());
            auto prepared = prepare(mirror, **items);
            if (!prepared)
                return std::unexpected(prepared.error());
            if (const auto published = (*prepared)->publish(); !published)
                return std::unexpected(published.error());
            return (*prepared)->sourceSize();
        }
        ADD_FAILURE() << "no item of that name";
        return 0;
    }

    [[nodiscard]] struct stat status(const FileURL& url) const
    {
        struct stat result = {};
        EXPECT_EQ(::lstat(url.nativePath().constData(), &result), 0) << url.nativePath().constData();
        return result;
    }

    [[nodiscard]] QByteArrayList namesIn(const FileURL& folder) const
    {
        QByteArrayList names;
        auto items = DirectoryEnumerator::open(folder, {});
        while ((*items)->next())
            names.append((*items)->name().toByteArray());
        return names;
    }

    [[nodiscard]] FileURL latest(const QByteArray& path) const
    {
        return drive.appendingNative("Latest/" + path);
    }

    TestMac mac;
    FileURL source = mac.makeFolder("source");
    FileURL drive = mac.makeFolder("drive");
    Cancellation cancellation;
};

} // namespace keelbright::testing

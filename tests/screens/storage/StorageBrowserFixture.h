#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/HeldFileManager.h"

namespace keelbright::testing {

/// Can hold the measuring of a folder and the search for the largest files below one as well.
class HeldWalks : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        // A question for the capacity is a look.
        (void)fileSystemCapacity(url);
        return HeldFileManager::enumerator(url, options);
    }
};

/// A home with folders to walk through:
///     Documents  Work (a.pdf 3,000; Old (b.zip 4,000))  c.txt 2,000  d.JPG 1,000
///     Pictures   empty
class StorageBrowserFixture : public ScreenTestCase
{
protected:
    StorageBrowserFixture()
    {
        write("Work/a.pdf", 3'000);
        write("Work/Old/b.zip", 4'000);
        write("c.txt", 2'000);
        write("d.JPG", 1'000);
        mac.makeFolder("Users/mira/Pictures");
    }

    /// Writes a file of that many bytes below Documents.
    FileURL write(const QByteArray& path, qsizetype bytes) const
    {
        return mac.writeFile("Users/mira/Documents/" + path, QByteArray(bytes, 'x'));
    }

    [[nodiscard]] FileURL documents() const { return mac.home().appending(QStringLiteral("Documents")); }

    [[nodiscard]] FileURL pictures() const { return mac.home().appending(QStringLiteral("Pictures")); }

    [[nodiscard]] bool exists(const FileURL& url) { return mac.fileManager().fileExists(url).exists; }

    static void waitForLevel(const StorageBrowserModel& model)
    {
        turnUntil([&] { return !model.isScanning(); });
    }

    static void waitForLargest(const StorageBrowserModel& model)
    {
        turnUntil([&] { return !model.isLoadingLargest(); });
    }

    static void navigate(StorageBrowserModel& model, const FileURL& url)
    {
        model.navigate(url);
        waitForLevel(model);
    }

    /// Into the entry of this name.
    static void drillIn(StorageBrowserModel& model, const QString& name)
    {
        model.drillIn(node(model, name));
        waitForLevel(model);
    }

    /// The entry of this name on the last level; fails the test where there is none.
    [[nodiscard]] static FolderSizeNode node(const StorageBrowserModel& model, const QString& name)
    {
        for (const FolderSizeNode& candidate : model.currentNodes()) {
            if (candidate.name == name)
                return candidate;
        }
        ADD_FAILURE() << "no entry " << name.toStdString();
        return {};
    }

    /// "name bytes" of each node.
    [[nodiscard]] static QStringList lines(const QList<FolderSizeNode>& nodes)
    {
        QStringList lines;
        for (const FolderSizeNode& node : nodes)
            lines.append(node.name + u' ' + QString::number(node.totalBytes));
        return lines;
    }

    [[nodiscard]] static QStringList names(const QList<LargeFileItem>& files)
    {
        QStringList names;
        for (const LargeFileItem& file : files)
            names.append(file.name());
        return names;
    }

    /// The names of the levels walked.
    [[nodiscard]] static QStringList walked(const StorageBrowserModel& model)
    {
        QStringList names;
        for (const StorageLevel& level : model.stack())
            names.append(level.url.lastPathComponent());
        return names;
    }
};

} // namespace keelbright::testing

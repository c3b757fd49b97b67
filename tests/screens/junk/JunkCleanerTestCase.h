#pragma once

#include "Keelbright/screens/JunkCleanerView.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QFile>

namespace keelbright::testing {

/// The screen of the junk cleaner on a machine with junk.
class JunkCleanerTestCase : public ScreenTestCase
{
protected:
    /// A folder in the library with one file of this size, which takes no room on disk.
    FileURL addJunk(const QByteArray& folder, qint64 bytes) const
    {
        const FileURL file = mac.writeFile("Users/mira/Library/" + folder + "/data", {});
        EXPECT_TRUE(QFile::resize(file.path(), bytes));
        return file.deletingLastPathComponent();
    }

    /// Two caches, a log and a device backup.
    void addSomeJunk() const
    {
        addJunk("Caches/com.example.editor", 6'000'000);
        addJunk("Caches/com.example.music", 5'000'000);
        addJunk("Logs/Example", 3'000'000);
        addJunk("Application Support/MobileSync/Backup/Phone", 2'000'000);
    }

    void open()
    {
        view = std::make_unique<JunkCleanerView>(context());
        show(*view);
        waitForScan();
    }

    /// For a test with a file manager of its own, which goes before the screen does.
    void close()
    {
        view.reset();
        waitForBackgroundWork();
    }

    void waitForScan() const
    {
        turnUntil([this] { return !model().isScanning(); });
        turnFrame();
    }

    [[nodiscard]] JunkCleanerVM& model() const { return *view->findChild<JunkCleanerVM*>(); }

    [[nodiscard]] ListDriver categories() const { return {*view, QStringLiteral("Junk categories")}; }

    [[nodiscard]] ListDriver items() const { return {*view, QStringLiteral("Junk items")}; }

    /// Of the bar at the bottom, whose buttons come last.
    [[nodiscard]] Button* lastButton(const QString& name) const
    {
        Button* last = nullptr;
        for (auto* candidate : view->findChildren<Button*>()) {
            if (candidate->isVisible() && candidate->accessibleName() == name)
                last = candidate;
        }
        return last;
    }

    void press(const QString& name) const
    {
        button(*view, name)->click();
        turnFrame();
    }

    void tick(int item) const
    {
        items().clickMark(item);
        turnFrame();
    }

    void chooseCategory(int row) const
    {
        categories().clickTitle(row);
        turnFrame();
    }

    [[nodiscard]] bool shows(const QString& text) const { return textsIn(*view).contains(text); }

    std::unique_ptr<JunkCleanerView> view;
};

} // namespace keelbright::testing

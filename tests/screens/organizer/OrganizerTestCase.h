#pragma once

#include "Keelbright/screens/OrganizerView.h"
#include "Keelbright/screens/organizer/QuickTargetRow.h"
#include "Keelbright/state/NotificationCenter.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/shared/ScreenTestCase.h"

namespace keelbright::testing {

/// The screen of the organizer on a machine with loose files.
class OrganizerTestCase : public ScreenTestCase
{
protected:
    void write(const QByteArray& path, qsizetype bytes) const
    {
        mac.writeFile("Users/mira/Downloads/" + path, QByteArray(bytes, 'x'));
    }

    /// Two pictures and a document.
    void writeSomeFiles() const
    {
        write("beach.jpg", 6'000);
        write("cat.png", 5'000);
        write("letter.pdf", 3'000);
    }

    [[nodiscard]] FileURL downloads() const { return mac.home().appending(QStringLiteral("Downloads")); }

    void open()
    {
        view = std::make_unique<OrganizerView>(context());
        show(*view);
    }

    /// Opens the screen and has the Downloads folder scanned.
    void openDownloads()
    {
        open();
        target(QStringLiteral("Downloads"))->click();
        waitForPlan();
    }

    void waitForPlan() const
    {
        turnUntil([this] { return !model().isScanning(); });
        turnFrame();
    }

    [[nodiscard]] OrganizerVM& model() const { return *view->findChild<OrganizerVM*>(); }

    [[nodiscard]] ListDriver categories() const { return {*view, QStringLiteral("File categories")}; }

    [[nodiscard]] ListDriver files() const { return {*view, QStringLiteral("Files")}; }

    [[nodiscard]] QuickTargetRow* target(const QString& name) const
    {
        for (auto* candidate : view->findChildren<QuickTargetRow*>()) {
            if (candidate->accessibleName() == name)
                return candidate;
        }
        ADD_FAILURE() << "no target " << name.toStdString();
        static QuickTargetRow none({}, {});
        return &none;
    }

    [[nodiscard]] bool hasChevron(const QString& targetName) const
    {
        return shownSymbols(*target(targetName)).contains(QStringLiteral("chevron.right"));
    }

    void press(const QString& name) const
    {
        button(*view, name)->click();
        turnFrame();
    }

    void tick(int file) const
    {
        files().clickMark(file);
        turnFrame();
    }

    void tickCategory(int row) const
    {
        categories().clickMark(row);
        turnFrame();
    }

    [[nodiscard]] bool shows(const QString& text) const { return textsIn(*view).contains(text); }

    static void post(const QVariant& object)
    {
        NotificationCenter::defaultCenter().post(organizeFolderNotification, object);
    }

    std::unique_ptr<OrganizerView> view;
};

} // namespace keelbright::testing

#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Button.h"
#include "KeelbrightCore/platform/system/ReadyFuture.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/Accessible.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/FakeAlertPresenter.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/Printing.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"
#include "tests/support/ThemeGuard.h"

#include <QCoreApplication>
#include <QLabel>
#include <QSettings>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// The machine of one test with a fresh state and everything that a screen needs. For tests that show
/// the screen and let it redraw, see `ScreenTestCase`.
class ScreenFixture : public ::testing::Test
{
protected:
    ScreenFixture()
    {
        (void)standardOutputOf([this] { state = std::make_unique<AppState>(services()); });
    }

    /// Waits, because the background work of a screen uses the members of the fixture.
    ~ScreenFixture() override { waitForBackgroundWork(); }

    ScreenFixture(const ScreenFixture&) = delete;
    ScreenFixture& operator=(const ScreenFixture&) = delete;

    [[nodiscard]] AppServices services()
    {
        // The App Store itself is never asked.
        return {.configStore = configStore,
                .activityStore = activityStore,
                .userDefaults = userDefaults,
                .folderChooser = chooser,
                .clock = mac.clock(),
                .lookup = [](const QString&) { return readyFuture(std::optional<iTunesAppInfo>()); },
                .steadyClock = [this] { return steadyNow; }};
    }

    [[nodiscard]] ScreenContext context() { return {*state, alerts, workspace, files}; }

    [[nodiscard]] FileURL drive() const { return mac.root().appending(QStringLiteral("Volumes/Anchor")); }

    void chooseDrive() { state->setSelectedDestination(BackupDestination{QUuid::createUuid(), drive()}); }

    /// The texts of the labels that are not hidden, in the order of the widget tree.
    [[nodiscard]] static QStringList textsIn(const QWidget& widget)
    {
        QStringList texts;
        for (const auto* label : widget.findChildren<QLabel*>()) {
            if (label->isVisibleTo(&widget))
                texts.append(label->text());
        }
        return texts;
    }

    /// The button with this caption that is not hidden; null if there is none.
    [[nodiscard]] static Button* buttonIn(const QWidget& widget, const QString& caption)
    {
        for (auto* button : widget.findChildren<Button*>()) {
            if (button->caption() == caption && button->isVisibleTo(&widget))
                return button;
        }
        return nullptr;
    }

    /// Delivers all queued events, also those that delete objects.
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TestMac mac;
    std::chrono::milliseconds steadyNow{0};
    BackupConfigStore configStore{mac.fileManager().applicationSupportDirectory()};
    ActivityStore activityStore{mac.fileManager().applicationSupportDirectory()};
    UserDefaults userDefaults{std::make_unique<QSettings>(
        mac.home().appending(QStringLiteral(".config/Keelbright/UserDefaults.ini")).path(),
        QSettings::IniFormat)};
    FakeFolderChooser chooser;
    FakeAlertPresenter alerts;
    FakeWorkspace workspace;
    FakeFileChooser files;
    std::unique_ptr<AppState> state;
    ThemeGuard theme{ColorScheme::light, true};
};

} // namespace keelbright::testing

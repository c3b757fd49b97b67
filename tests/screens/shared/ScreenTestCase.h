#pragma once

#include "tests/screens/shared/ScreenFixture.h"
#include "tests/support/SampleReport.h"

#include <functional>

namespace keelbright::testing {

/// The fixture of tests that show a screen and let it redraw frame by frame. Motion is reduced.
class ScreenTestCase : public ScreenFixture
{
protected:
    ScreenTestCase() { mac.makeFolder("Volumes/Anchor"); }

    /// The state of a fresh machine.
    [[nodiscard]] AppState& makeState() { return *state; }

    /// The state of a machine whose last backup has this report.
    [[nodiscard]] AppState& makeState(const BackupReport& lastReport);

    [[nodiscard]] BackupDestination driveDestination() const { return {QUuid::createUuid(), drive()}; }

    /// Shows the view at the size that it has in the main window, and waits until it is active.
    static void show(QWidget& view);
    /// Lets a redraw that was asked for happen.
    static void turnFrame();
    /// Turns the event loop until the condition holds; fails the test after a minute.
    static void turnUntil(const std::function<bool()>& condition);

    /// The visible button with this accessible name; fails the test if there is none.
    [[nodiscard]] static Button* button(const QWidget& view, const QString& name);
    /// The accessible names of all visible widgets.
    [[nodiscard]] static QStringList accessibleNames(const QWidget& view);
    /// The keys of the visible symbols, except those of buttons.
    [[nodiscard]] static QStringList shownSymbols(const QWidget& view);
    /// Fails the test if a control has no accessible name or is not reached by Tab.
    static void expectEveryControlIsNamedAndReachedByTab(QWidget& view);
};

} // namespace keelbright::testing

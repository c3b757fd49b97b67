#pragma once

#include "tests/screens/shared/ScreenFixture.h"
#include "tests/support/SampleReport.h"

#include <functional>

namespace keelbright::testing {

/// For the screens that follow the state frame by frame. Nothing moves by itself.
class ScreenTestCase : public ScreenFixture
{
protected:
    ScreenTestCase() { mac.makeFolder("Volumes/Anchor"); }

    /// The state of a fresh machine.
    [[nodiscard]] AppState& makeState() { return *state; }

    /// The state of a machine that has finished this backup before.
    [[nodiscard]] AppState& makeState(const BackupReport& lastReport);

    [[nodiscard]] BackupDestination driveDestination() const { return {QUuid::createUuid(), drive()}; }

    /// Puts the screen on screen at the size that it has in the window.
    static void show(QWidget& view);
    /// Lets a redraw that was asked for happen.
    static void turnFrame();
    /// Turns the event loop until the condition holds; fails the test after 30 seconds.
    static void turnUntil(const std::function<bool()>& condition);

    /// The shown button of this accessible name; fails the test where there is none.
    [[nodiscard]] static Button* button(const QWidget& view, const QString& name);
    /// The accessible names of everything shown.
    [[nodiscard]] static QStringList accessibleNames(const QWidget& view);
    /// The symbols that stand beside words; not those of buttons.
    [[nodiscard]] static QStringList shownSymbols(const QWidget& view);
    /// Fails where a control has no name for a screen reader or Tab does not come to it.
    static void expectEveryControlIsNamedAndReachedByTab(QWidget& view);
};

} // namespace keelbright::testing

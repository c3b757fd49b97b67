#pragma once

#include "Keelbright/state/Screen.h"

#include <QList>
#include <optional>

namespace keelbright::testing {

class Stage;

/// One state of a screen.
struct ScreenState
{
    const char* screen; ///< the screen's name as part of a file's name
    const char* name;   ///< the state's name as part of a file's name
    /// Brings a fresh stage into the state.
    void (*play)(Stage& stage);
    bool alsoAtDoubleScale = false; ///< drawn at double scale, too
};

/// Every screen of the program in every state, in the order of the sidebar, and behind them those of a Linux
/// desktop and of other windows. The pictures and the
/// checks of all screens are made from this list: a new state is one line here.
[[nodiscard]] QList<ScreenState> screenStates();

/// The name of a file that is too long for every place.
inline constexpr char longName[] =
    "A name so long that nobody would ever write it on the back of a photograph, not even Grandma in "
    "the summer of 1961 (final, corrected, second copy)";

// The parts of the list.
[[nodiscard]] QList<ScreenState> protectStates();
[[nodiscard]] QList<ScreenState> cleanStates();
[[nodiscard]] QList<ScreenState> storageStates();
[[nodiscard]] QList<ScreenState> organiseStates();
[[nodiscard]] QList<ScreenState> reviewStates();
/// Those that differ in the home of a Linux desktop, of several screens.
[[nodiscard]] QList<ScreenState> linuxStates();
/// Those of the window that checks copies.
[[nodiscard]] QList<ScreenState> checkStates();
/// Those of the window that shows an undo.
[[nodiscard]] QList<ScreenState> undoStates();

} // namespace keelbright::testing

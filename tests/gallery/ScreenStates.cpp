#include "tests/gallery/ScreenStates.h"

namespace keelbright::testing {

QList<ScreenState> screenStates()
{
    return protectStates() + cleanStates() + storageStates() + organiseStates() + reviewStates() +
           linuxStates() + checkStates() + undoStates();
}

} // namespace keelbright::testing

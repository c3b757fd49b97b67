#include "tests/gallery/ScreenStates.h"

namespace keelbright::testing {

QList<ScreenState> screenStates()
{
    return protectStates() + cleanStates() + storageStates() + reviewStates();
}

} // namespace keelbright::testing

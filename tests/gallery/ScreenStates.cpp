#include "tests/gallery/ScreenStates.h"

namespace keelbright::testing {

QList<ScreenState> screenStates()
{
    return protectStates() + cleanStates() + reviewStates();
}

} // namespace keelbright::testing

#include "tests/gallery/ScreenStates.h"

namespace keelbright::testing {

QList<ScreenState> cleanStates()
{
    return {};
}

} // namespace keelbright::testing

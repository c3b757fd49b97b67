#include "KeelbrightCore/platform/system/FileSizeLimit.h"

#include <csignal>
#include <tuple>

namespace keelbright {

void reportFileSizeLimitAsError()
{
    std::ignore = std::signal(SIGXFSZ, SIG_IGN);
}

} // namespace keelbright

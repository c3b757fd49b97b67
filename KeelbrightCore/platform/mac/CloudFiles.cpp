#include "KeelbrightCore/platform/system/CloudFiles.h"

#include <sys/resource.h>
#include <tuple>

namespace keelbright {

void CloudFiles::leaveInTheCloud()
{
    std::ignore = ::setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_PROCESS,
                                   IOPOL_MATERIALIZE_DATALESS_FILES_OFF);
}

} // namespace keelbright

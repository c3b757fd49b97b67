#include "KeelbrightCore/platform/system/CloudFiles.h"

namespace keelbright {

void CloudFiles::leaveInTheCloud() {}

} // namespace keelbright

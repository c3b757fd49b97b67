#include "KeelbrightCore/platform/system/Finder.h"

namespace keelbright {

bool Finder::reveal(const FileURL&)
{
    return false;
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/FlushWays.h"

#include "KeelbrightCore/platform/files/Unsupported.h"

namespace keelbright {

std::expected<void, int> flushInFirstWay(int file, std::initializer_list<FlushWay> ways)
{
    int code = ENOTSUP;
    for (const FlushWay flush : ways) {
        code = flush(file);
        if (code == 0)
            return {};
        if (!meansUnsupported(code) && code != EINVAL)
            break;
    }
    return std::unexpected(code);
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/ReadingCalls.h"

#include <algorithm>
#include <fcntl.h>

namespace keelbright {

qint64 nextData(int file, qint64 offset, qint64 end)
{
    const off_t data = ::lseek(file, offset, SEEK_DATA);
    if (data >= 0)
        return std::min<qint64>(data, end);
    return errno == ENXIO ? end : offset;
}

} // namespace keelbright

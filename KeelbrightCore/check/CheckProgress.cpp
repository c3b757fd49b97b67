#include "KeelbrightCore/check/CheckProgress.h"

#include <algorithm>

namespace keelbright {

double CheckProgressValues::fraction() const
{
    if (bytes > 0)
        return std::clamp(static_cast<double>(readBytes) / static_cast<double>(bytes), 0.0, 1.0);
    if (files > 0)
        return std::clamp(static_cast<double>(checkedFiles) / static_cast<double>(files), 0.0, 1.0);
    return 0;
}

void CheckProgress::setTotal(qint64 files, qint64 bytes)
{
    m_files = files;
    m_bytes = bytes;
}

void CheckProgress::beginFile(const QByteArray& name)
{
    const std::lock_guard lock(m_mutex);
    m_currentFile = name;
}

CheckProgressValues CheckProgress::values() const
{
    CheckProgressValues values{.phase = m_phase,
                               .files = m_files,
                               .bytes = m_bytes,
                               .checkedFiles = m_checkedFiles,
                               .readBytes = m_readBytes,
                               .faults = m_faults,
                               .currentFile = {}};
    const std::lock_guard lock(m_mutex);
    values.currentFile = m_currentFile;
    return values;
}

} // namespace keelbright

#pragma once

#include <QByteArray>
#include <QFile>

#include <sys/resource.h>

namespace keelbright::bench {

/// The peak memory of the process so far, in the system's unit: KB on Linux, bytes on macOS.
[[nodiscard]] inline long peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// The resident memory of the process in KB; 0 if the system does not report it.
[[nodiscard]] inline qint64 residentMemory()
{
    QFile memory(QStringLiteral("/proc/self/smaps_rollup"));
    if (!memory.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : memory.readAll().split('\n')) {
        if (line.startsWith("Rss:"))
            return line.mid(4).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

} // namespace keelbright::bench

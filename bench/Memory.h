#pragma once

#include <QByteArray>
#include <QFile>

#include <sys/resource.h>

namespace keelbright::bench {

/// The most memory that the process has had so far, in the units of the system.
[[nodiscard]] inline long peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// The memory that the process has now, in KB; 0 where the system does not say.
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

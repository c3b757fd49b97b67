#include "KeelbrightCore/platform/system/RunningPrograms.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <algorithm>
#include <unistd.h>

namespace keelbright {

namespace {

constexpr qint64 maximumBytes = qint64{4} * 1024 * 1024; // the longest command line that the system allows

bool isNumber(const QByteArray& name)
{
    return std::ranges::all_of(name, [](char byte) { return byte >= '0' && byte <= '9'; });
}

/// The "Uid:" line has the real user first.
bool belongsToUser(const QByteArray& status)
{
    const QByteArrayView key("\nUid:");
    const qsizetype start = status.indexOf(key);
    if (start < 0)
        return false;
    const QByteArrayView rest = QByteArrayView(status).sliced(start + key.size()).trimmed();
    const auto* end = std::ranges::find_if(rest, [](char byte) { return byte < '0' || byte > '9'; });
    return rest.first(end - rest.begin()) == QByteArray::number(::getuid());
}

/// The first argument. Browsers write their helpers' options behind it with blanks.
QByteArray programOf(const QByteArray& commandLine)
{
    QByteArray program = commandLine.split('\0').first();
    if (const qsizetype options = program.indexOf(" -"); options >= 0)
        program.truncate(options);
    return program.trimmed();
}

} // namespace

QSet<QByteArray> runningPrograms(const FileManager& files)
{
    const auto entries = files.contentsOfDirectory(files.systemLocation(QStringLiteral("/proc")), {});
    QSet<QByteArray> programs;
    for (const DirectoryEntry& process : entries.value_or(QList<DirectoryEntry>())) {
        if (!isNumber(process.url.nativeLastPathComponent()))
            continue;
        const auto read = [&](const char* name) {
            return files.contents(process.url.appendingNative(name), maximumBytes).value_or(QByteArray());
        };
        const QByteArray program = programOf(read("cmdline"));
        if (!program.isEmpty() && !programs.contains(program) && belongsToUser(read("status")))
            programs.insert(program);
    }
    return programs;
}

} // namespace keelbright

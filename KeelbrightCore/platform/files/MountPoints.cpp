#include "KeelbrightCore/platform/files/MountPoints.h"

#ifdef __APPLE__
#include <sys/mount.h>
#include <vector>
#else
#include "KeelbrightCore/platform/files/FileDescriptor.h"
#endif

namespace keelbright {

#ifdef __APPLE__

QList<FileURL> mountPoints()
{
    const int count = ::getfsstat(nullptr, 0, MNT_NOWAIT);
    if (count <= 0)
        return {};
    std::vector<struct statfs> systems(static_cast<size_t>(count));
    const int size = static_cast<int>(systems.size() * sizeof(struct statfs));
    const int filled = ::getfsstat(systems.data(), size, MNT_NOWAIT);
    QList<FileURL> points;
    for (int i = 0; i < filled; ++i)
        points.append(FileURL::fromNativePath(systems[static_cast<size_t>(i)].f_mntonname));
    return points;
}

#else

namespace {

QByteArray mountTable()
{
    const FileDescriptor file(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
    constexpr qsizetype piece = qsizetype{16} * 1024;
    QByteArray table;
    for (ssize_t got = 1; file.isOpen() && got > 0;) {
        const qsizetype size = table.size();
        table.resize(size + piece);
        got = retrying([&] { return ::read(file.get(), table.data() + size, piece); });
        table.resize(size + qMax<qsizetype>(got, 0));
    }
    return table;
}

/// The table writes blanks, line breaks and backslashes as a backslash and three octal digits.
QByteArray unescaped(const QByteArray& text)
{
    constexpr qsizetype digits = 3;
    QByteArray path;
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool isOctal = false;
        const int code = text[i] == '\\' ? text.mid(i + 1, digits).toInt(&isOctal, 8) : 0;
        path.append(isOctal ? static_cast<char>(code) : text[i]);
        i += isOctal ? digits : 0;
    }
    return path;
}

} // namespace

QList<FileURL> mountPoints()
{
    constexpr qsizetype fieldOfPath = 4;
    QList<FileURL> points;
    for (const QByteArray& line : mountTable().split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() > fieldOfPath)
            points.append(FileURL::fromNativePath(unescaped(fields[fieldOfPath])));
    }
    return points;
}

#endif

} // namespace keelbright

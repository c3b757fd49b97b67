#include "KeelbrightCore/platform/files/MountPoints.h"

namespace keelbright {

QByteArray unescapedMountPoint(const QByteArray& text)
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

QList<FileURL> mountPoints()
{
    QList<FileURL> points;
    for (const DeviceMount& mount : deviceMounts())
        points.append(mount.point);
    return points;
}

} // namespace keelbright

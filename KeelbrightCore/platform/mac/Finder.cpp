#include "KeelbrightCore/platform/system/Finder.h"

#include <QProcess>

namespace keelbright {

bool Finder::reveal(const FileURL& url)
{
    return QProcess::startDetached(QStringLiteral("/usr/bin/open"), {QStringLiteral("-R"), url.path()});
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/Finder.h"

#ifdef __APPLE__
#include <QProcess>
#endif

namespace keelbright {

#ifdef __APPLE__
bool Finder::reveal(const FileURL& url)
{
    return QProcess::startDetached(QStringLiteral("/usr/bin/open"), {QStringLiteral("-R"), url.path()});
}
#else
bool Finder::reveal(const FileURL&)
{
    return false;
}
#endif

} // namespace keelbright

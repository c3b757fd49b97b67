#include "Keelbright/screens/shell/ProgramIcon.h"

#include <QDir>

namespace keelbright {

using namespace Qt::StringLiterals;

QIcon programIcon()
{
    QIcon icon;
    const QDir pictures(u":/icons"_s);
    for (const QString& name : pictures.entryList())
        icon.addFile(pictures.filePath(name));
    return icon;
}

} // namespace keelbright

#include "KeelbrightCore/platform/system/ProgramVersion.h"

namespace keelbright {

QString programVersion()
{
    return QStringLiteral(KEELBRIGHT_VERSION);
}

} // namespace keelbright

#include "Keelbright/screens/shared/ScreenTitle.h"

#include <QCoreApplication>

namespace keelbright {

QString screenTitle(Screen screen)
{
    return QCoreApplication::translate("Screen", rawValue(screen).toUtf8().constData());
}

} // namespace keelbright

#include "Keelbright/screens/shell/ProgramApplication.h"

#include <new>

namespace keelbright {

bool ProgramApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace keelbright

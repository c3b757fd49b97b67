#include "Keelbright/screens/shared/Announcement.h"

#include <QAccessible>
#include <QWidget>

namespace keelbright {

void announce(QWidget& widget, const QString& text)
{
    widget.setAccessibleName(text);
    QAccessibleEvent alert(&widget, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace keelbright

#include "Keelbright/screens/apps/BusyLine.h"

#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/Progress.h"

#include <QHBoxLayout>

namespace keelbright {

BusyLine::BusyLine(const QString& text, QWidget* parent)
    : QWidget(parent)
{
    constexpr int diameter = 18;
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    row->addWidget(new Spinner(text, diameter, this));
    row->addWidget(makeWrappingLabel(text, FontRole::body, Role::secondaryText, this), 1);
}

} // namespace keelbright

#include "Keelbright/screens/organizer/DestinationTag.h"

#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int arrowSize = 12;

} // namespace

DestinationTag::DestinationTag(QWidget* parent)
    : QWidget(parent)
    , m_place(new ElidedLabel({}, FontRole::caption, Role::primaryText, Qt::ElideMiddle, this))
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(5);
    row->addWidget(new SymbolLabel(u"arrow.right"_s, arrowSize, Role::accent, this));
    row->addWidget(m_place, 1);
}

void DestinationTag::setText(const QString& text)
{
    m_place->setFullText(text);
}

void DestinationTag::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::instance().tint(Role::accent, panelTint, Role::card));
    painter.drawRoundedRect(rect(), Metrics::buttonRadius, Metrics::buttonRadius);
}

} // namespace keelbright

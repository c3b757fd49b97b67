#include "Keelbright/screens/organizer/QuickTargetRow.h"

#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int symbolSize = 18;
constexpr int chevronSize = 14;

} // namespace

QuickTargetRow::QuickTargetRow(const QString& symbol, const QString& text, QWidget* parent)
    : CardButton(Frame::none, parent)
    , m_chevron(new SymbolLabel(u"chevron.right"_s, chevronSize, Role::accent, this))
{
    setAccessibleName(text);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::panelPadding, 10, Metrics::panelPadding, 10);
    row->setSpacing(12);
    row->addWidget(new SymbolLabel(symbol, symbolSize, Role::accent, this));
    row->addWidget(new ElidedLabel(text, FontRole::bodyStrong, Role::primaryText, Qt::ElideRight, this), 1);
    row->addWidget(m_chevron);
    m_chevron->hide();
}

void QuickTargetRow::setActive(bool isActive)
{
    setCheckable(isActive);
    setChecked(isActive);
    m_chevron->setVisible(isActive);
    update();
}

void QuickTargetRow::paintEvent(QPaintEvent* event)
{
    if (isChecked()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::instance().tint(Role::accent, panelTint, Role::window));
        painter.drawRoundedRect(highlight(), Metrics::tileRadius, Metrics::tileRadius);
    }
    CardButton::paintEvent(event);
}

} // namespace keelbright

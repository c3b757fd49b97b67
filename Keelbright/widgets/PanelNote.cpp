#include "Keelbright/widgets/PanelNote.h"

#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/BalancedLabel.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QShowEvent>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int symbolSize = 40;
constexpr int margin = Metrics::panelPadding;

} // namespace

PanelNote::PanelNote(const QString& symbol, Role color, const QString& title, const QString& detail,
                     QWidget* parent)
    : PanelNote(new SymbolLabel(symbol, symbolSize, color), title, detail, parent)
{}

PanelNote::PanelNote(QWidget* picture, const QString& title, const QString& detail, QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(title);
    setAccessibleDescription(detail);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(4);
    layout->addStretch(4);
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    const auto addText = [this, layout](const QString& text, FontRole font, Role role) {
        layout->addWidget(new BalancedLabel(text, font, role, this));
    };
    addText(title, FontRole::sectionTitle, Role::primaryText);
    if (!detail.isEmpty())
        addText(detail, FontRole::body, Role::secondaryText);
    layout->addStretch(5);
}

void PanelNote::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        say(*this, accessibleName());
}

BusyState::BusyState(const QString& title, const QString& detail, int diameter, QWidget* parent)
    : PanelNote(new Spinner(title, diameter), title, detail, parent)
{}

} // namespace keelbright

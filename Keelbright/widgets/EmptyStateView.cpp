#include "Keelbright/widgets/EmptyStateView.h"

#include "Keelbright/widgets/BalancedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int iconSize = 52;
constexpr int readableWidth = 380;

} // namespace

EmptyStateView::EmptyStateView(const QString& title, const QString& message, const QString& icon,
                               QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout)
{
    setAccessibleName(title);
    setAccessibleDescription(message);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                               Metrics::pageMarginY);
    m_column->setSpacing(6);
    layout->addStretch(4);
    layout->addLayout(m_column);
    layout->addStretch(5);

    m_column->addWidget(new SymbolLabel(icon, iconSize, Role::emptyMark, this), 0, Qt::AlignHCenter);
    m_column->addSpacing(8);
    auto* titleLabel = new BalancedLabel(title, FontRole::headline, Role::primaryText, this);
    auto* messageLabel = new BalancedLabel(message, FontRole::body, Role::secondaryText, this);
    for (BalancedLabel* label : {titleLabel, messageLabel}) {
        label->setMaximumWidth(readableWidth);
        // The stretches beside the label grow only after it has its readable width.
        auto* line = new QHBoxLayout;
        line->addStretch(1);
        line->addWidget(label, 100'000);
        line->addStretch(1);
        m_column->addLayout(line);
    }
    messageLabel->setVisible(!message.isEmpty());
}

void EmptyStateView::addAction(QWidget* action)
{
    m_column->addSpacing(10);
    m_column->addWidget(action, 0, Qt::AlignHCenter);
}

} // namespace keelbright

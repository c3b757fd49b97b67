#include "Keelbright/screens/shared/GroupItemsPanel.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"

#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace keelbright {

GroupItemsPanel::GroupItemsPanel(const Texts& texts, QWidget* parent)
    : Ground(Role::card, parent)
    , m_header(new PanelHeader({}, {}, {}, Role::accent, this))
    , m_toggle(new Button(Button::Kind::bordered, texts.toggle, {}, this))
    , m_list(new RowListView(RowListView::Look::table, texts.list, this))
    , m_states(new QStackedLayout)
    , m_detail(new QVBoxLayout)
{
    content()->addLayout(m_states);
    m_states->addWidget(new EmptyStateView(tr("Select a category"), texts.hint, texts.hintSymbol, this));
    auto* detail = new QWidget(this);
    detail->setLayout(m_detail);
    m_detail->setContentsMargins(0, 0, 0, 0);
    m_detail->setSpacing(0);
    m_header->addTrailing(m_toggle);
    m_detail->addWidget(m_header);
    m_detail->addWidget(new Separator(Qt::Horizontal, detail));
    m_detail->addWidget(m_list, 1);
    m_states->addWidget(detail);
}

void GroupItemsPanel::addBelowHeader(QWidget* widget)
{
    auto* line = new QHBoxLayout;
    line->setContentsMargins(Metrics::panelPadding, 0, Metrics::panelPadding, 10);
    line->addWidget(widget);
    line->addStretch();
    m_detail->insertLayout(1, line);
    // A screen reader goes by the order of the children.
    widget->stackUnder(m_list);
}

void GroupItemsPanel::showHint()
{
    m_states->setCurrentIndex(0);
    m_groupID.reset();
}

void GroupItemsPanel::showDetail()
{
    m_states->setCurrentIndex(1);
}

} // namespace keelbright

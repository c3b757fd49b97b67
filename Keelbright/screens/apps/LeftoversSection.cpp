#include "Keelbright/screens/apps/LeftoversSection.h"

#include "Keelbright/screens/apps/BusyLine.h"
#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// A longer list scrolls.
constexpr int maximumVisibleRows = 12;

} // namespace

LeftoversSection::LeftoversSection(AppDetailVM& model, Workspace& workspace, QWidget* parent)
    : PageSection(new SectionHeader(tr("Associated Files"), u"folder.fill"_s), parent)
    , m_model(model)
    , m_workspace(workspace)
    , m_card(new Card(this))
{
    m_scanning = new BusyLine(tr("Scanning for leftover files…"), m_card);
    m_none = makeWrappingLabel(tr("No leftover files found."), FontRole::body, Role::secondaryText, m_card);
    m_found = makeList();
    for (QWidget* state : {m_scanning, static_cast<QWidget*>(m_none), m_found})
        m_card->content()->addWidget(state);
    content()->addWidget(m_card);
    connect(&m_model, &AppDetailVM::isLoadingLeftoversChanged, this, &LeftoversSection::redraw);
    connect(&m_model, &AppDetailVM::leftoversChanged, this, &LeftoversSection::redraw);
    redraw();
}

QWidget* LeftoversSection::makeList()
{
    auto* found = new QWidget(m_card);
    auto* column = new QVBoxLayout(found);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_list = new RowListView(RowListView::Look::table, tr("Associated Files"), found);
    m_list->setRowModel(&m_rows);
    connect(m_list, &RowListView::actionPressed, this, [this](int row, RowActionId action) {
        if (action == RowActionId::reveal)
            m_workspace.reveal(m_rows.itemAt(row).url);
    });
    column->addWidget(m_list);
    m_total = new NumberLabel({}, FontRole::bodyStrong, Role::primaryText, found);
    m_total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* totalLine = new QHBoxLayout;
    totalLine->setContentsMargins(0, 10, RowMetrics::tablePadding, 6);
    totalLine->addWidget(m_total);
    column->addLayout(totalLine);
    return found;
}

void LeftoversSection::redraw()
{
    const bool isScanning = m_model.isLoadingLeftovers();
    const bool isEmpty = m_model.leftovers().isEmpty();
    m_rows.setItems(m_model.leftovers());
    m_list->setFixedHeight(std::min(m_rows.rowCount(), maximumVisibleRows) * RowMetrics::tableRow);
    const QString total = tr("Total: %1").arg(ByteCountFormatter::string(m_model.totalLeftoverBytes()));
    m_total->setText(total);
    m_scanning->setVisible(isScanning);
    m_none->setVisible(!isScanning && isEmpty);
    m_found->setVisible(!isScanning && !isEmpty);
    // The rows have margins of their own and go from edge to edge.
    const int margin = m_found->isHidden() ? Metrics::cardPadding : 1;
    m_card->content()->setContentsMargins(margin, m_found->isHidden() ? margin : 10, margin, margin);
    if (!isScanning)
        announce(*m_card, isEmpty ? tr("No leftover files found.") : total);
}

} // namespace keelbright

#include "Keelbright/screens/junk/JunkItemPanel.h"

#include "Keelbright/screens/junk/JunkCategoryModel.h"
#include "Keelbright/screens/junk/JunkItemModel.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QScrollBar>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

JunkItemPanel::JunkItemPanel(JunkCleanerVM& vm, Workspace& workspace, QWidget* parent)
    : Ground(Role::card, parent)
    , m_vm(vm)
    , m_model(new JunkItemModel(vm, this))
    , m_header(new PanelHeader({}, {}, {}, Role::accent, this))
    , m_toggleAll(new Button(Button::Kind::bordered, tr("Select All"), {}, this))
    , m_list(new RowListView(RowListView::Look::table, tr("Junk items"), this))
    , m_states(new QStackedLayout)
{
    content()->addLayout(m_states);
    m_states->addWidget(new EmptyStateView(tr("Select a category"),
                                           tr("Click a category on the left to review its items."),
                                           u"trash.slash"_s, this));
    m_states->addWidget(makeDetail());
    connectList(workspace);
}

QWidget* JunkItemPanel::makeDetail()
{
    auto* detail = new QWidget(this);
    auto* column = new QVBoxLayout(detail);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_header->addTrailing(m_toggleAll);
    column->addWidget(m_header);
    column->addWidget(new Separator(Qt::Horizontal, detail));
    column->addWidget(m_list, 1);
    return detail;
}

void JunkItemPanel::connectList(Workspace& workspace)
{
    m_list->setRowModel(m_model);
    connect(m_list, &RowListView::markPressed, this, [this](int row) {
        const QUuid id = m_model->items().at(row).id;
        m_vm.setSelected(id, !m_vm.selectedItemIDs().contains(id));
    });
    connect(m_list, &RowListView::actionPressed, this,
            [this, &workspace](int row) { workspace.reveal(m_model->items().at(row).url); });
    connect(m_toggleAll, &QPushButton::clicked, this, [this] {
        if (const JunkCategory* category = shownCategory())
            m_vm.toggleAll(*category);
    });
}

const JunkCategory* JunkItemPanel::shownCategory() const
{
    const auto& id = m_vm.selectedCategoryID();
    const auto& categories = m_vm.categories();
    if (!id)
        return nullptr;
    const auto found = std::ranges::find(categories, *id, &JunkCategory::id);
    return found == categories.end() ? nullptr : &*found;
}

void JunkItemPanel::redraw()
{
    const JunkCategory* category = shownCategory();
    m_states->setCurrentIndex(category != nullptr ? 1 : 0);
    if (category == nullptr) {
        m_shownID.reset();
        return;
    }
    redrawItems(*category);
    redrawHeader(*category);
}

void JunkItemPanel::redrawHeader(const JunkCategory& category)
{
    m_header->setTitle(category.title);
    m_header->setSubtitle(
        tr("%1 items · %2 total").arg(QString::number(category.items.size()), category.formattedSize()));
    m_header->setSymbol(category.icon, junkCategoryColor(category.id));
    const bool isAllSelected = m_vm.selectionState(category) == JunkCleanerVM::SelectionState::all;
    m_toggleAll->setCaption(isAllSelected ? tr("Deselect All") : tr("Select All"));
}

void JunkItemPanel::redrawItems(const JunkCategory& category)
{
    if (m_model->items() == category.items) {
        m_model->announceAllRows();
        m_shownID = category.id;
        return;
    }
    // What is left after a clean stays where the eye is; another category begins at its top.
    const bool isSameCategory = std::exchange(m_shownID, category.id) == category.id;
    const int place = isSameCategory ? m_list->verticalScrollBar()->value() : 0;
    const int current = isSameCategory ? m_list->currentRow() : -1;
    const QUuid currentID = current >= 0 ? m_model->items().at(current).id : QUuid();
    m_model->setItems(category.items);
    const int kept = currentID.isNull() ? -1 : m_model->rowOf(currentID);
    const int last = m_model->rowCount() - 1;
    m_list->setCurrentRow(current >= 0 && kept < 0 ? std::min(current, last) : kept);
    m_list->doItemsLayout();
    m_list->verticalScrollBar()->setValue(place);
}

} // namespace keelbright

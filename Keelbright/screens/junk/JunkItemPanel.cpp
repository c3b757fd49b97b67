#include "Keelbright/screens/junk/JunkItemPanel.h"

#include "Keelbright/screens/junk/JunkCategoryModel.h"
#include "Keelbright/screens/junk/JunkItemModel.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Button.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

namespace keelbright {

using namespace Qt::StringLiterals;

JunkItemPanel::JunkItemPanel(JunkCleanerVM& vm, Workspace& workspace, QWidget* parent)
    : GroupItemsPanel({.hint = tr("Click a category on the left to review its items."),
                       .hintSymbol = u"trash.slash"_s,
                       .toggle = tr("Select All"),
                       .list = tr("Junk items")},
                      parent)
    , m_vm(vm)
    , m_model(new JunkItemModel(vm, this))
{
    list()->setRowModel(m_model);
    connect(list(), &RowListView::markPressed, this, [this](int row) {
        const QUuid id = m_model->itemAt(row).id;
        m_vm.setSelected(id, !m_vm.selectedItemIDs().contains(id));
    });
    connect(list(), &RowListView::actionPressed, this, [this, &workspace](int row, RowActionId action) {
        if (action == RowActionId::reveal)
            workspace.reveal(m_model->itemAt(row).url);
    });
    connect(toggle(), &QPushButton::clicked, this, [this] {
        if (const JunkCategory* category = m_vm.selectedCategory())
            m_vm.toggleAll(*category);
    });
}

void JunkItemPanel::redraw()
{
    const JunkCategory* category = m_vm.selectedCategory();
    if (category == nullptr) {
        showHint();
        return;
    }
    showItems(category->id, *m_model, category->items);
    redrawHeader(*category);
}

void JunkItemPanel::redrawHeader(const JunkCategory& category)
{
    header()->setTitle(category.title);
    header()->setSubtitle(tr("%n items · %1 total", nullptr, pluralNumber(category.items.size()))
                              .arg(category.formattedSize()));
    header()->setSymbol(category.icon, junkCategoryColor(category.id));
    const bool isAllSelected = m_vm.selectionState(category) == SelectionState::all;
    toggle()->setCaption(isAllSelected ? tr("Deselect All") : tr("Select All"));
}

} // namespace keelbright

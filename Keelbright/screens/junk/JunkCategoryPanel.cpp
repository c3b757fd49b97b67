#include "Keelbright/screens/junk/JunkCategoryPanel.h"

#include "Keelbright/screens/junk/JunkCategoryModel.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QStackedLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

JunkCategoryPanel::JunkCategoryPanel(JunkCleanerVM& vm, QWidget* parent)
    : Ground(Role::window, parent)
    , m_vm(vm)
    , m_model(new JunkCategoryModel(vm, this))
    , m_states(new QStackedLayout)
{
    content()->addWidget(new PanelHeader(tr("Junk Cleaner"), {}, u"trash.fill"_s, Role::orange, this));
    content()->addLayout(m_states, 1);
    m_busy = new BusyState(tr("Scanning…"), {}, 32, this);
    m_clean =
        new PanelNote(u"checkmark.circle.fill"_s, Role::green, tr("All clean!"), tr("No junk found."), this);
    m_states->addWidget(m_busy);
    m_states->addWidget(m_clean);
    addList();
}

void JunkCategoryPanel::addList()
{
    m_list = new RowListView(RowListView::Look::panel, tr("Junk categories"), this);
    m_list->setRowModel(m_model);
    m_states->addWidget(m_list);
    connect(m_list, &RowListView::currentRowChanged, this,
            [this](int row) { m_vm.setSelectedCategoryID(m_model->itemAt(row).id); });
    connect(m_list, &RowListView::currentRowCleared, this,
            [this] { m_vm.setSelectedCategoryID(std::nullopt); });
    connect(m_list, &RowListView::markPressed, this,
            [this](int row) { m_vm.toggleAll(m_model->itemAt(row)); });
}

void JunkCategoryPanel::redraw()
{
    m_model->setGroups(m_vm.categories());
    m_list->setCurrentRow(m_model->rowOf(m_vm.selectedCategoryID()));
    if (m_vm.isScanning())
        m_states->setCurrentWidget(m_busy);
    else if (m_vm.categories().isEmpty())
        m_states->setCurrentWidget(m_clean);
    else
        showList();
}

void JunkCategoryPanel::showList()
{
    const bool isNew = m_states->currentWidget() != m_list;
    m_states->setCurrentWidget(m_list);
    if (isNew && isVisible())
        announce(*m_list, m_list->accessibleName());
}

} // namespace keelbright

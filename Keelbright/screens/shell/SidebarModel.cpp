#include "Keelbright/screens/shell/SidebarModel.h"

#include "Keelbright/screens/shared/ScreenTitle.h"
#include "Keelbright/screens/shell/SidebarView.h"

namespace keelbright {

SidebarModel::SidebarModel(QObject* parent)
    : QAbstractListModel(parent)
{
    for (const auto& [title, screens] : SidebarView::sections()) {
        m_rows.append({title, std::nullopt});
        for (const Screen screen : screens)
            m_rows.append({screenTitle(screen), screen});
    }
}

int SidebarModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return row.title;
    case symbolRole:
        return row.screen ? icon(*row.screen) : QString();
    default:
        return {};
    }
}

Qt::ItemFlags SidebarModel::flags(const QModelIndex& index) const
{
    return screenAt(index) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                           : Qt::ItemNeverHasChildren;
}

std::optional<Screen> SidebarModel::screenAt(const QModelIndex& index) const
{
    return index.isValid() ? m_rows.at(index.row()).screen : std::nullopt;
}

QModelIndex SidebarModel::indexOf(std::optional<Screen> screen) const
{
    for (qsizetype i = 0; screen && i < m_rows.size(); ++i) {
        if (m_rows.at(i).screen == screen)
            return index(static_cast<int>(i));
    }
    return {};
}

} // namespace keelbright

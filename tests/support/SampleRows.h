#pragma once

#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright::testing {

/// Rows for the tests of lists: each has a box to tick and two actions; a title that begins with
/// "#" makes the row a header.
class SampleRows : public RowModel
{
public:
    explicit SampleRows(QStringList titles, QObject* parent = nullptr)
        : RowModel(parent)
        , m_titles(std::move(titles))
    {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_titles.size());
    }

    [[nodiscard]] QString headerAt(int row) const override
    {
        const QString& title = m_titles.at(row);
        return title.startsWith(u'#') ? title.mid(1) : QString();
    }

    [[nodiscard]] QString titleAt(int row) const override { return m_titles.at(row); }

    [[nodiscard]] ListRow rowAt(int row) const override
    {
        ++rowsMade;
        ListRow shown;
        shown.mark = ListRow::Mark::checkBox;
        shown.markState = ticked.contains(row) ? Qt::Checked : Qt::Unchecked;
        shown.symbol = QStringLiteral("folder.fill");
        shown.title = m_titles.at(row);
        shown.detail = QStringLiteral("/Users/mira/") + m_titles.at(row);
        shown.detailElide = Qt::ElideMiddle;
        shown.value = QStringLiteral("%1 MB").arg(row);
        if (hasButtons) {
            shown.actions = {
                {RowActionId::reveal, QStringLiteral("folder"), QStringLiteral("Reveal in Finder")},
                {RowActionId::trash, QStringLiteral("trash"), QStringLiteral("Move to Trash"), true}};
        }
        shown.menuActions = menuActions;
        return shown;
    }

    void setTitles(const QStringList& titles)
    {
        beginResetModel();
        m_titles = titles;
        endResetModel();
    }

    void tick(int row)
    {
        ticked.append(row);
        announceRows(row, row);
    }

    QList<int> ticked;
    bool hasButtons = true;
    QList<RowAction> menuActions; ///< of every row
    mutable int rowsMade = 0;     ///< how often a row was asked for

private:
    QStringList m_titles;
};

} // namespace keelbright::testing

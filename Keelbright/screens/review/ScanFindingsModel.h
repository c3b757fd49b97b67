#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/health/ScanFinding.h"

namespace keelbright {

/// The findings of a full scan as rows, each category under its header.
class ScanFindingsModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    /// In the order of the report; within a category it holds.
    void setFindings(const QList<ScanFinding>& findings);

    /// Only for rows that exist and are no header.
    [[nodiscard]] const ScanFinding& findingAt(int row) const
    {
        return m_findings.at(m_rows.at(row).finding);
    }

    /// The button that leads to where the finding can be acted on; nothing where it names no screen.
    [[nodiscard]] static std::optional<RowAction> actionButton(const ScanFinding& finding);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString headerAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;
    [[nodiscard]] QString accessibleText(int row) const override;

private:
    struct Row
    {
        ScanFinding::Category category;
        qsizetype finding; ///< -1 for the header of the category
    };

    QList<ScanFinding> m_findings;
    QList<Row> m_rows;
};

} // namespace keelbright

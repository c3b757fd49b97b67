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

    /// The findings of a category keep the order that they have here.
    void setFindings(const QList<ScanFinding>& findings);

    /// `row` must be the row of a finding, not that of a header.
    [[nodiscard]] const ScanFinding& findingAt(int row) const
    {
        return m_findings.at(m_rows.at(row).finding);
    }

    /// The button of the finding's row; none if its action names no screen.
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

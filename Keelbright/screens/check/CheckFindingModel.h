#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/check/CheckReport.h"

namespace keelbright {

/// The findings of a check as rows: where the file lies, and what is wrong with it.
class CheckFindingModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setReport(const CheckReport& report);

    [[nodiscard]] const FileURL& itemAt(int row) const { return m_report.findings.at(row).item; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    CheckReport m_report;
};

} // namespace keelbright

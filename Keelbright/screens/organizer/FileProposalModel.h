#pragma once

#include "Keelbright/state/OrganizerVM.h"
#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright {

/// The planned moves of one category as rows that can be ticked.
class FileProposalModel : public RowModel
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit FileProposalModel(const OrganizerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

    [[nodiscard]] const QList<FileProposal>& files() const { return m_files; }

    /// Shows these files, and what is ticked of them now.
    void setFiles(const QList<FileProposal>& files);

private:
    const OrganizerVM& m_vm;
    QList<FileProposal> m_files;
};

} // namespace keelbright

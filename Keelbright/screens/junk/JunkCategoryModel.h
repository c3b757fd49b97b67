#pragma once

#include "Keelbright/screens/shared/GroupListModel.h"
#include "Keelbright/state/JunkCleanerVM.h"

namespace keelbright {

/// The colour of a kind of junk, by its `id`.
[[nodiscard]] Role junkCategoryColor(const QString& id);

/// The kinds of junk as rows, with how much of each is ticked.
class JunkCategoryModel : public GroupListModel<JunkCategory>
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit JunkCategoryModel(const JunkCleanerVM& vm, QObject* parent = nullptr);

protected:
    [[nodiscard]] ListRow makeRow(const JunkCategory& category) const override;
    [[nodiscard]] Qt::CheckState markOf(const JunkCategory& category) const override;

private:
    const JunkCleanerVM& m_vm;
};

} // namespace keelbright

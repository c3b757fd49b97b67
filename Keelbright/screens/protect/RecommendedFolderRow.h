#pragma once

#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/backup/RecommendedFolder.h"

namespace keelbright {

class AppState;
class FadingTile;
class ToggleSwitch;

/// A recommended folder with the switch that protects it. The switch writes to the state.
class RecommendedFolderRow : public RowWidget
{
    Q_OBJECT

public:
    /// For the folder at `index` of the state's recommended folders. The state must outlive the row.
    RecommendedFolderRow(AppState& state, qsizetype index, QWidget* parent = nullptr);

    /// Shows the folder's current state and whether it exists on disk.
    void redraw();

private:
    RecommendedFolderRow(AppState& state, qsizetype index, FadingTile* tile, QWidget* parent);
    [[nodiscard]] const RecommendedFolder& folder() const;
    void setProtected(bool isProtected);

    AppState& m_state;
    qsizetype m_index;
    FadingTile* m_tile;
    Tag* m_notFound;
    ToggleSwitch* m_switch;
};

} // namespace keelbright

#pragma once

#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/backup/RecommendedFolder.h"

namespace keelbright {

class AppState;
class FadingTile;
class ToggleSwitch;

/// A suggested folder with the switch that protects it. The switch writes straight into the state.
class RecommendedFolderRow : public RowWidget
{
    Q_OBJECT

public:
    /// For the folder at `index` of the state's recommended folders.
    RecommendedFolderRow(AppState& state, qsizetype index, QWidget* parent = nullptr);

    /// Shows the folder as it now is in the state and on disk.
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

#pragma once

#include "Keelbright/widgets/Card.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

class AppState;
class RowWidget;
class Tile;

/// The Dashboard's card of what a backup takes, where it goes and how the last one ended; hidden
/// without a destination.
class ProtectedFoldersCard : public RowList
{
    Q_OBJECT

public:
    explicit ProtectedFoldersCard(AppState& state, QWidget* parent = nullptr);

    /// Shows the present choices; touches only what differs.
    void redraw();

private:
    void addHeader();
    void addDestinationRow();
    void addReportRow();
    void redrawSources();
    void redrawDestination();
    void redrawReport();

    AppState& m_state;
    QList<FileURL> m_shownSources;
    qsizetype m_moreSources = 0;
    RowWidget* m_destinationRow = nullptr;
    RowWidget* m_reportRow = nullptr;
    Tile* m_reportTile = nullptr;
};

} // namespace keelbright

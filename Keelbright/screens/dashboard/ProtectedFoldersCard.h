#pragma once

#include "Keelbright/widgets/Card.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

class AppState;
class RowWidget;
class Tag;
class Tile;

/// The Dashboard's card with the protected folders, the destination and the result of the last
/// backup; hidden without a destination.
class ProtectedFoldersCard : public RowList
{
    Q_OBJECT

public:
    /// The state must outlive the card.
    explicit ProtectedFoldersCard(AppState& state, QWidget* parent = nullptr);

    /// Shows the current state; changes only the rows that differ.
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
    Tag* m_notConnected = nullptr;
    RowWidget* m_reportRow = nullptr;
    Tile* m_reportTile = nullptr;
};

} // namespace keelbright

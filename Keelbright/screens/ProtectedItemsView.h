#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupSource.h"

#include <QList>

namespace keelbright {

class AlertPresenter;
class AppState;
class Button;
class RecommendedFolderRow;
class RowList;

/// The screen where the user chooses what a backup copies. Every choice is written to the state,
/// which saves it at once.
class ProtectedItemsView : public Page
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    ProtectedItemsView(AppState& state, AlertPresenter& alerts, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void addHeader();
    void addRecommendedFolders();
    void addCustomFolders();
    void addNotBackedUp();
    void redraw();
    void redrawCustomFolders();
    void fillCustomFolders();
    void askForReset();

    AppState& m_state;
    AlertPresenter& m_alertPresenter;
    FrameThrottle m_frames;
    QList<RecommendedFolderRow*> m_recommended;
    QWidget* m_noCustomFolders = nullptr;
    RowList* m_customFolders = nullptr;
    Button* m_addFolder = nullptr;
    QList<BackupSource> m_shownCustomSources;
};

} // namespace keelbright

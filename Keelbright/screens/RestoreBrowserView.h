#pragma once

#include "Keelbright/state/RestoreBrowserVM.h"
#include "Keelbright/widgets/Page.h"

namespace keelbright {

class AppState;
class RowListView;
class SectionHeader;
class SnapshotRows;
class Workspace;

/// Lists the copies in a backup folder and opens them in the desktop's file browser, where the user
/// copies files back. The opened folder is forgotten when the screen is left.
class RestoreBrowserView : public Page
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    RestoreBrowserView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

private:
    void addHeader();
    void addLatest();
    void addSnapshots();
    void showFolder();
    void redraw();

    const AppState& m_state;
    Workspace& m_workspace;
    RestoreBrowserVM m_vm;
    SnapshotRows* m_rows;
    QWidget* m_nothingOpened = nullptr;
    QWidget* m_latest = nullptr;
    QWidget* m_found = nullptr;
    SectionHeader* m_heading = nullptr;
    RowListView* m_list = nullptr;
    QWidget* m_nothingFound = nullptr;
};

} // namespace keelbright

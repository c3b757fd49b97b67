#pragma once

#include "Keelbright/state/RestoreBrowserVM.h"
#include "Keelbright/widgets/Page.h"

namespace keelbright {

class AppState;
class RowListView;
class SectionHeader;
class SnapshotRows;
class Workspace;

/// Finds what a backup holds and opens it in the desktop's file browser, where files are copied
/// back by hand. Forgets the opened folder when it goes.
class RestoreBrowserView : public Page
{
    Q_OBJECT

public:
    /// What is handed in outlives the screen.
    RestoreBrowserView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

private:
    void addHeader();
    void addLatest();
    void addSnapshots();
    void showFolder();
    void redraw();

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

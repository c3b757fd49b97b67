#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/rows/ListRow.h"

#include <QWidget>

class QStackedWidget;

namespace keelbright {

class AlertPresenter;
class LevelPanel;
class ShortcutBar;
class StorageHeader;
class Workspace;
struct ScreenContext;

/// What takes the space in a folder, level by level: as a list, as a map, or its largest files.
class StorageBrowserView : public QWidget
{
    Q_OBJECT

public:
    explicit StorageBrowserView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] StorageBrowserModel& model() { return m_model; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void layOut();
    void fitHeight();
    void addKeys();
    void redraw();
    void showPage(QWidget* page);
    void refresh();
    void perform(const FolderSizeNode& node, RowActionId action);
    void addToBackup(const FolderSizeNode& node);
    void askToTrash(const FolderSizeNode& node);

    AlertPresenter& m_alerts;
    Workspace& m_workspace;
    StorageBrowserModel m_model;
    FrameThrottle m_frames;
    StorageHeader* m_header;
    ShortcutBar* m_shortcuts; ///< before the pages, for the Tab key
    QStackedWidget* m_pages;
    QWidget* m_busy;
    LevelPanel* m_level;
    QWidget* m_prompt;
    bool m_returnsFocus = false; ///< the level had the focus when the spinner took its place
};

} // namespace keelbright

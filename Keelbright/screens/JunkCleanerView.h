#pragma once

#include "Keelbright/screens/shared/FocusKeeper.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/widgets/FrameThrottle.h"

#include <QWidget>

namespace keelbright {

class AlertPresenter;
class BottomBar;
class Button;
class JunkCategoryPanel;
class JunkItemPanel;
class SelectionSummary;
class UndoStore;
struct ScreenContext;

/// The screen for looking through junk and moving it to the Trash: the kinds of junk at the left, the
/// items of one kind at the right, and what is ticked at the bottom. Scans when it is shown.
class JunkCleanerView : public QWidget
{
    Q_OBJECT

public:
    explicit JunkCleanerView(const ScreenContext& context, QWidget* parent = nullptr);
    ~JunkCleanerView() override;
    Q_DISABLE_COPY_MOVE(JunkCleanerView)

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] BottomBar* makeBottomBar();
    void watchModel();
    void followUndo(UndoStore& undo);
    void redraw();
    void redrawBottomBar();
    void rescan();
    void toggleEverything();
    void ask();
    /// Moves the selected items to the Trash.
    void clean();
    [[nodiscard]] QString selectedSize() const;

    AlertPresenter& m_alerts;
    JunkCleanerVM m_vm;
    FrameThrottle m_frames;
    FocusKeeper m_focus{*this};
    JunkCategoryPanel* m_categories;
    JunkItemPanel* m_items;
    QWidget* m_panels;
    SelectionSummary* m_selection = nullptr;
    Button* m_toggleAll = nullptr;
    Button* m_rescan = nullptr;
    Button* m_clean = nullptr;
};

} // namespace keelbright

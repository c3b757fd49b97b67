#pragma once

#include "KeelbrightCore/storage/UndoService.h"

#include <QDialog>
#include <QTimer>

class QVBoxLayout;

namespace keelbright {

class UndoRunningPanel;
class UndoStore;

/// How far an undo is, and then what could not be put back. Closing it, also with Escape, cancels the undo
/// first; once more leaves an undo that hangs with a drive to itself.
class UndoWindow : public QDialog
{
    Q_OBJECT

public:
    static constexpr QSize minimumWindowSize{520, 400};
    static constexpr QSize startingSize{640, 460};

    /// Shows the undo under way in the store, which outlives the window.
    explicit UndoWindow(UndoStore& store, QWidget* parent = nullptr);

    void showResult(const UndoResult& result);

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showRunning();
    void redrawRunning();
    void replacePanel(QWidget* panel);

    UndoStore& m_store;
    QVBoxLayout* m_layout;
    QWidget* m_panel = nullptr;
    UndoRunningPanel* m_running = nullptr; ///< null while a result is shown
    QTimer m_look;
};

} // namespace keelbright

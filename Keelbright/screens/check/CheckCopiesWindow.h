#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/CopyCheckVM.h"

#include <QDialog>

class QVBoxLayout;

namespace keelbright {

class CheckResultPanel;
class CheckRunningPanel;
class CheckStartPanel;
class Page;

/// Checks the copies on the drive, in a window of its own. Closing it, also with Escape, cancels a running
/// check first; once more gives it up, so that a drive that hangs does not keep the window.
class CheckCopiesWindow : public QDialog
{
    Q_OBJECT

public:
    static constexpr QSize minimumWindowSize{760, 620};
    static constexpr QSize startingSize{860, 720};

    /// The members of the context must outlive the window.
    explicit CheckCopiesWindow(const ScreenContext& context, QWidget* parent = nullptr);

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void redraw();
    void redrawProgress();
    void showStart();
    void showRunning();
    void showResult();
    void copyFindings() const;
    /// Replaces the panel that was shown before; a narrow one stands in the middle.
    void replacePanel(QWidget* panel, bool isNarrow);

    ScreenContext m_context;
    CopyCheckVM m_vm;
    QVBoxLayout* m_layout;
    QWidget* m_page = nullptr; ///< holds the panel
    CheckStartPanel* m_start = nullptr;
    CheckRunningPanel* m_running = nullptr;
    CheckResultPanel* m_result = nullptr;
};

} // namespace keelbright

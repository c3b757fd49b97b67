#pragma once

#include "Keelbright/screens/shared/FocusKeeper.h"
#include "Keelbright/state/OrganizerVM.h"
#include "Keelbright/widgets/FrameThrottle.h"

#include <QWidget>

namespace keelbright {

class AlertPresenter;
class OrganizerPlanPanel;
class ProposalPanel;
class UndoStore;
struct ScreenContext;

/// The screen that sorts the loose files of a folder into subfolders: the folder and its categories
/// at the left, the files of one category at the right. Scans when the user picks a folder, or when
/// another screen sends one.
class OrganizerView : public QWidget
{
    Q_OBJECT

public:
    explicit OrganizerView(const ScreenContext& context, QWidget* parent = nullptr);
    ~OrganizerView() override;
    Q_DISABLE_COPY_MOVE(OrganizerView)

private:
    void watchModel();
    void followUndo(UndoStore& undo);
    void receive(const QString& name, const QVariant& object);
    /// Scans a folder that is none of the quick targets.
    void scan(const FileURL& folder);
    void redraw();
    void rescan();
    void ask();

    AlertPresenter& m_alerts;
    OrganizerVM m_vm;
    FrameThrottle m_frames;
    FocusKeeper m_focus{*this};
    OrganizerPlanPanel* m_plan;
    ProposalPanel* m_files;
    QWidget* m_panels;
};

} // namespace keelbright

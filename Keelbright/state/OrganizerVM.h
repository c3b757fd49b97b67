#pragma once

#include "Keelbright/state/GroupSelection.h"
#include "KeelbrightCore/platform/system/Clock.h"
#include "KeelbrightCore/storage/OrganizeProposal.h"
#include "KeelbrightCore/storage/UndoableMoves.h"

#include <QObject>

namespace keelbright {

class ActivityStore;
class FolderChooser;

/// The model behind the organizer screen: the plan of one folder, what is ticked in it, and its
/// run. Main thread only. The result of a scan that outlives the model is dropped.
///
/// A proposal is in `selectedCategories` exactly when each of its files is in `selectedFiles`.
class OrganizerVM : public QObject
{
    Q_OBJECT

public:
    /// The folders in the home that one click scans.
    enum class QuickTarget { desktop, downloads };

    [[nodiscard]] static const QList<QuickTarget>& allQuickTargets();
    /// The label on the screen, in English, and the name of the folder in the home.
    [[nodiscard]] static QString rawValue(QuickTarget target);

    /// Store and chooser outlive the model.
    OrganizerVM(ActivityStore& activityStore, FolderChooser& folderChooser, Clock clock = systemClock,
                QObject* parent = nullptr);

    /// The plan; a new one has its largest category first.
    [[nodiscard]] const QList<OrganizeProposal>& proposals() const { return m_selection.groups(); }

    /// The category whose files are shown.
    [[nodiscard]] std::optional<QUuid> selectedProposalID() const { return m_selection.shownID(); }

    void setSelectedProposalID(std::optional<QUuid> id);

    /// Null where no proposal has the `selectedProposalID`.
    [[nodiscard]] const OrganizeProposal* selectedProposal() const { return m_selection.shown(); }

    /// Proposals that are ticked as a whole.
    [[nodiscard]] const QSet<QUuid>& selectedCategories() const { return m_selectedCategories; }

    /// Files that a run moves.
    [[nodiscard]] const QSet<QUuid>& selectedFiles() const { return m_selection.ids(); }

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// Whether the user is being asked before a run; set and cleared by the screen.
    [[nodiscard]] bool showConfirm() const { return m_showConfirm; }

    void setShowConfirm(bool show);

    /// The folder of the last scan.
    [[nodiscard]] const std::optional<FileURL>& targetFolder() const { return m_targetFolder; }

    /// Absent for a folder that was chosen any other way.
    [[nodiscard]] std::optional<QuickTarget> activeTarget() const { return m_activeTarget; }

    void setActiveTarget(std::optional<QuickTarget> target);

    void scan(QuickTarget target);
    /// Asks the user for a folder and scans it; nothing changes if the chooser is dismissed.
    void pickCustomFolder();
    /// Drops the plan and makes one of `folder` in the background, with everything ticked. If several
    /// scans run at once, the result of the last to end remains.
    void scan(const FileURL& folder);

    /// Ticks or unticks a proposal with all its files; does nothing for an unknown id.
    void toggleCategory(const QUuid& id);
    /// Unticks everything if every proposal is ticked, and ticks everything otherwise.
    void toggleSelectAll();
    void setFile(const QUuid& id, bool selected, const QUuid& proposalID);
    /// The sizes of `selectedFiles`, added up.
    [[nodiscard]] QString selectedSizeFormatted() const;

    /// Moves `selectedFiles`, and logs the run if at least one was moved. They leave the plan even if
    /// their move failed, and all that remains is ticked again. Returns when the last file is moved.
    void execute();

Q_SIGNALS:
    /// A run has moved files, and this is what an undo needs.
    void organised(const keelbright::UndoableMoves& moves);
    void showConfirmChanged();
    /// Any property was set.
    void changed();

private:
    void setProposals(const QList<OrganizeProposal>& proposals);
    void setIsScanning(bool isScanning);
    void setTargetFolder(const FileURL& folder);

    void showPlan(const QList<OrganizeProposal>& plan);
    void selectAll();
    void selectNothing();
    void showFirstProposal();
    /// Ticks the category if all its files are ticked, and unticks it otherwise.
    void updateCategory(const OrganizeProposal& proposal);
    void logRun(qint64 moved, qint64 bytes) const;

    ActivityStore& m_activityStore;
    FolderChooser& m_folderChooser;
    Clock m_clock;
    GroupSelection<OrganizeProposal, &OrganizeProposal::files> m_selection;
    QSet<QUuid> m_selectedCategories;
    bool m_isScanning = false;
    bool m_showConfirm = false;
    std::optional<FileURL> m_targetFolder;
    std::optional<QuickTarget> m_activeTarget;
};

} // namespace keelbright

#pragma once

#include "Keelbright/state/AppServices.h"
#include "KeelbrightCore/apps/AppInfo.h"
#include "KeelbrightCore/apps/AppLeftover.h"
#include "KeelbrightCore/platform/system/LatestTask.h"
#include "KeelbrightCore/storage/UndoableMoves.h"

#include <QFuture>
#include <QList>
#include <QObject>
#include <optional>

namespace keelbright {

/// One application: its leftovers, what the App Store says about it, and its removal. Each application
/// has a model of its own, so that no late result of another one can arrive here. Main thread
/// only.
class AppDetailVM : public QObject
{
    Q_OBJECT

public:
    /// The store outlives the model. Starts nothing yet.
    AppDetailVM(AppInfo app, ActivityStore& activityStore, AppLookup lookup, Clock clock = systemClock,
                QObject* parent = nullptr);
    ~AppDetailVM() override;
    Q_DISABLE_COPY_MOVE(AppDetailVM)

    [[nodiscard]] const AppInfo& app() const { return m_app; }

    /// Largest first.
    [[nodiscard]] const QList<AppLeftover>& leftovers() const { return m_leftovers; }

    [[nodiscard]] qint64 totalLeftoverBytes() const;

    [[nodiscard]] bool isLoadingLeftovers() const { return m_isLoadingLeftovers; }

    [[nodiscard]] const std::optional<iTunesAppInfo>& itunesInfo() const { return m_itunesInfo; }

    [[nodiscard]] bool isLoadingiTunes() const { return m_isLoadingiTunes; }

    /// The App Store was asked, whether or not it knew the application.
    [[nodiscard]] bool itunesLookedUp() const { return m_itunesLookedUp; }

    /// Whether the user is being asked before a removal; the screen's to set and to clear.
    [[nodiscard]] bool showDeleteConfirm() const { return m_showDeleteConfirm; }

    void setShowDeleteConfirm(bool show) { m_showDeleteConfirm = show; }

    /// Whether the application itself can be moved to the Trash; one that belongs to a package or to all
    /// users can't.
    [[nodiscard]] bool canMoveApp() const { return m_app.removalCommand.isEmpty() && !m_app.isForAllUsers; }

    /// Looks in the background for what the application keeps outside its bundle. A search that is under
    /// way ends before its next place, and so does one whose model goes.
    void loadLeftovers();
    /// Asks the App Store; called only when the user wants it.
    void fetchDescription();
    /// Moves the bundle and then the leftovers found so far to the Trash, one after another and
    /// before it returns. What can't be moved stays where it is, without a message, and the log counts
    /// it as removed.
    void removeApp();
    /// The same for the bundle alone.
    void removeAppOnly();
    /// The same for the leftovers alone, which are then looked for again. The application stays, and
    /// without leftovers nothing is logged.
    void removeFilesOnly();

Q_SIGNALS:
    void leftoversChanged();
    void isLoadingLeftoversChanged();
    void itunesChanged();
    /// A removal has moved items, and this is what an undo needs. Comes before `removed`.
    void trashed(const keelbright::UndoableMoves& moves);
    /// The application has been removed, as far as that was possible.
    void removed(const keelbright::AppInfo& app);

private:
    void setIsLoadingLeftovers(bool isLoading);
    void logRemoval(const char* title, const QString& detail, qint64 bytes, qint64 items) const;

    const AppInfo m_app;
    ActivityStore& m_activityStore;
    AppLookup m_lookup;
    Clock m_clock;
    LatestTask m_leftoversSearch;
    QFuture<std::optional<iTunesAppInfo>> m_itunesRequest;
    QList<AppLeftover> m_leftovers;
    bool m_isLoadingLeftovers = false;
    std::optional<iTunesAppInfo> m_itunesInfo;
    bool m_isLoadingiTunes = false;
    bool m_itunesLookedUp = false;
    bool m_showDeleteConfirm = false;
};

} // namespace keelbright

#pragma once

#include "Keelbright/screens/apps/AppListModel.h"
#include "Keelbright/screens/shared/FocusKeeper.h"
#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Panels.h"

class QStackedWidget;

namespace keelbright {

class AppState;
class Button;
class MenuButton;
class RowListView;
class SearchField;

/// The installed applications, in the order, of the category and with the name that the user asks for.
class AppListPanel : public Ground
{
    Q_OBJECT

public:
    /// State and icons outlive the panel.
    AppListPanel(AppState& state, AppIcons& icons, QWidget* parent = nullptr);

    /// Selects it in the list, if it is listed.
    void setSelectedApp(const std::optional<AppInfo>& app);
    /// Gives the list the keyboard focus.
    void focusList();

Q_SIGNALS:
    void appSelected(const keelbright::AppInfo& app);
    /// The user cleared the selection.
    void selectionCleared();
    void scanRequested();
    void revealRequested(const keelbright::AppInfo& app);
    void removalRequested(const keelbright::AppInfo& app);

private:
    void addHeader();
    void addFilterBar();
    void addStates();
    [[nodiscard]] QWidget* makeEmptyState();
    [[nodiscard]] QWidget* makeList();
    void setCategory(int choice);
    void setFilter(const AppFilter& filter);
    void perform(int row, RowActionId action);
    /// Empty as long as no application was found.
    [[nodiscard]] QString caption() const;
    void redraw();
    void redrawContent();
    void showState(QWidget* state);

    AppState& m_state;
    AppListModel m_model;
    FrameThrottle m_frames;
    FocusKeeper m_focus{*this};
    bool m_areAppsStale = true;
    bool m_wasScanning = false;
    bool m_restoresFocus = false;
    std::optional<QUuid> m_selectedApp;
    PanelHeader* m_header = nullptr;
    Button* m_rescan = nullptr;
    MenuButton* m_category = nullptr;
    Button* m_clearFilter = nullptr;
    QStackedWidget* m_states = nullptr;
    QWidget* m_scanning = nullptr;
    QWidget* m_empty = nullptr;
    Button* m_scanNow = nullptr;
    QWidget* m_listed = nullptr;
    SearchField* m_search = nullptr;
    RowListView* m_list = nullptr;
};

} // namespace keelbright

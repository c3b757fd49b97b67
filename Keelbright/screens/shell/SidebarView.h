#pragma once

#include "Keelbright/state/Screen.h"

#include <QList>
#include <QWidget>
#include <utility>

class QListView;

namespace keelbright {

class AppState;
class SidebarModel;

/// The list of screens. Its selection and the state's selected screen always agree; while the screen
/// is one without a row, nothing is selected.
class SidebarView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int minimumWidthOfSidebar = 220;
    static constexpr int idealWidth = 240;
    static constexpr int maximumWidthOfSidebar = 300;

    /// The sections with their titles and screens; the last one has no title.
    [[nodiscard]] static const QList<std::pair<QString, QList<Screen>>>& sections();

    /// The state must outlive the view.
    explicit SidebarView(AppState& state, QWidget* parent = nullptr);

    [[nodiscard]] QListView* list() const { return m_list; }

    [[nodiscard]] QSize sizeHint() const override { return {idealWidth, 600}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void selectShownScreen();

    AppState& m_state;
    SidebarModel* m_model;
    QListView* m_list;
    bool m_isSelectingShownScreen = false;
};

} // namespace keelbright

#pragma once

#include "Keelbright/screens/apps/AppIcons.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "KeelbrightCore/apps/AppInfo.h"

#include <QPointer>
#include <QWidget>
#include <optional>

class QVBoxLayout;

namespace keelbright {

class AppDetailPanel;
class AppListPanel;

/// The installed applications with the verdicts on their use, and beside them the selected one. The
/// list belongs to the state; selection, filter, order and search belong to the screen and end with it.
class AppManagerView : public QWidget
{
    Q_OBJECT

public:
    explicit AppManagerView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<AppInfo>& selectedApp() const { return m_selectedApp; }

    /// Clears the selection and lists the applications again.
    void scanApps();

private:
    void offerRescan();
    void setSelectedApp(const std::optional<AppInfo>& app);
    void showDetail(QWidget* detail);
    void dropApp(const AppInfo& app);

    ScreenContext m_context;
    AppIcons m_icons;
    std::optional<AppInfo> m_selectedApp;
    AppListPanel* m_list = nullptr;
    QVBoxLayout* m_right = nullptr;
    QWidget* m_detail = nullptr;
    QPointer<AppDetailPanel> m_panel;
};

} // namespace keelbright

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

/// The installed applications with the verdicts on their use, and beside them the one that is
/// selected. The list is the state's; what is selected, filtered, sorted and searched is the
/// screen's own and goes with it.
class AppManagerView : public QWidget
{
    Q_OBJECT

public:
    explicit AppManagerView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] const std::optional<AppInfo>& selectedApp() const { return m_selectedApp; }

    /// Lists the applications anew; nothing is selected any more.
    void scanApps();

private:
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

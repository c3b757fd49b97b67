#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/widgets/Panels.h"

namespace keelbright {

class AppIcons;

/// One application: its use, what the App Store tells of it, the files it left around, and its
/// removal. Looks for the files at once. One panel an application.
class AppDetailPanel : public Ground
{
    Q_OBJECT

public:
    /// What is handed in outlives the panel.
    AppDetailPanel(AppInfo app, const ScreenContext& context, AppIcons& icons, QWidget* parent = nullptr);

    [[nodiscard]] const AppInfo& app() const { return m_model.app(); }

    /// Asks what to remove, unless that is being asked already.
    void askForRemoval();
    void revealBundle();

Q_SIGNALS:
    /// The application has been removed.
    void removed(const keelbright::AppInfo& app);

private:
    [[nodiscard]] QWidget* makeHeader();
    [[nodiscard]] QLayout* makeTitle(QWidget* header) const;
    [[nodiscard]] QWidget* makeActions();
    [[nodiscard]] QString question() const;
    void endQuestion(void (AppDetailVM::*remove)());

    ScreenContext m_context;
    AppIcons& m_icons;
    AppDetailVM m_model;
};

} // namespace keelbright

#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/widgets/Panels.h"

namespace keelbright {

class AppIcons;

/// One application: its use, its description in the App Store, the files it left around, and its
/// removal. Starts to look for the files at once. Another application takes another panel.
class AppDetailPanel : public Ground
{
    Q_OBJECT

public:
    /// Context and icons outlive the panel.
    AppDetailPanel(AppInfo app, const ScreenContext& context, AppIcons& icons, QWidget* parent = nullptr);

    [[nodiscard]] const AppInfo& app() const { return m_model.app(); }

    /// Asks what to remove, unless the question is open already.
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
    /// The question where the application itself has to stay.
    void askForRemovalOfFiles();
    void endQuestion(void (AppDetailVM::*remove)());

    ScreenContext m_context;
    AppIcons& m_icons;
    AppDetailVM m_model;
};

} // namespace keelbright

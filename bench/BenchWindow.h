#pragma once

#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/state/FileChooser.h"
#include "Keelbright/state/KeelbrightApp.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/FakeFolderChooser.h"

namespace keelbright::bench {

/// A chooser that is never asked.
class NoFileChooser : public FileChooser
{
public:
    void chooseFile(const FileOpenRequest&, std::function<void(const FileURL&)>) override {}

    void chooseSaveLocation(const FileSaveRequest&, std::function<void(const FileURL&)>) override {}
};

/// A desktop on which nothing is opened.
class NoWorkspace : public Workspace
{
public:
    void open(const FileURL&) override {}

    void reveal(const FileURL&) override {}
};

/// The real window on the current file manager, shown, with the onboarding passed.
class BenchWindow
{
public:
    explicit BenchWindow(Screen screen)
    {
        Theme::instance().install();
        state().setIsOnboardingCompleted(true);
        state().setSelectedScreen(screen);
        m_window.show();
    }

    [[nodiscard]] AppState& state() { return m_app.state(); }

    [[nodiscard]] MainWindow& window() { return m_window; }

private:
    testing::FakeFolderChooser m_chooser;
    NoWorkspace m_workspace;
    NoFileChooser m_files;
    DialogAlertPresenter m_alerts;
    KeelbrightApp m_app{m_chooser};
    MainWindow m_window{{m_app.state(), m_alerts, m_workspace, m_files}};
};

} // namespace keelbright::bench

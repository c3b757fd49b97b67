#include "Keelbright/screens/shell/MainWindow.h"

#include "Keelbright/screens/OnboardingView.h"
#include "Keelbright/screens/check/CheckCopiesWindow.h"
#include "Keelbright/screens/shell/CommandEntries.h"
#include "Keelbright/screens/shell/DetailView.h"
#include "Keelbright/screens/shell/EditCommands.h"
#include "Keelbright/screens/shell/MainView.h"
#include "Keelbright/screens/shell/SettingsWindow.h"
#include "Keelbright/screens/shell/SidebarView.h"
#include "Keelbright/screens/shell/StateAnnouncer.h"
#include "Keelbright/screens/shell/UndoCommand.h"
#include "Keelbright/screens/shell/WindowMenus.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

namespace keelbright {

namespace {

void bringForward(QWidget& window)
{
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

MainWindow::MainWindow(const ScreenContext& context, QWidget* parent)
    : QMainWindow(parent)
    , m_context(context)
    , m_commands(new CommandEntries(this))
{
    setWindowTitle(tr("Keel Bright"));
    setMinimumSize(minimumWindowSize);
    resize(startingSize.boundedTo(screen()->availableSize()));
    makeMenus();
    connect(&context.state, &AppState::isOnboardingCompletedChanged, this, &MainWindow::showOnboardingOrMain);
    // What was agreed for one backup does not hold for the next.
    connect(&context.state.engine(), &BackupEngine::isRunningChanged, this, [this] {
        if (m_context.state.engine().isRunning())
            m_mayClose = false;
        updateProgressAction();
    });
    new StateAnnouncer(context.state, *this);
    showOnboardingOrMain();
}

void MainWindow::makeMenus()
{
    fillFileMenu(*menuBar()->addMenu(tr("&File")));
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    new UndoCommand(m_context.state.undo(), *edit, *this);
    new EditCommands(*edit, *this);
    edit->addSeparator();
    m_commands->add(*edit, ScreenCommand::find);
    fillViewMenu(*menuBar()->addMenu(tr("&View")));
    QMenu* window = menuBar()->addMenu(tr("&Window"));
    QAction* minimize = window->addAction(tr("&Minimize"), this, &QWidget::showMinimized);
    minimize->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_M));
    QAction* close = window->addAction(tr("&Close"), this, &QWidget::close);
    close->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    addHelpMenu(*menuBar(), *this);
}

void MainWindow::fillFileMenu(QMenu& menu)
{
    addBackupAction(menu, m_context.state);
    QAction* check = menu.addAction(tr("Check &Copies…"), this, &MainWindow::showCheck);
    check->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    m_fullScanAction = m_commands->add(menu, ScreenCommand::fullScan);
    connect(m_fullScanAction, &QAction::triggered, this, &MainWindow::startFullScan);
    m_commands->add(menu, ScreenCommand::exportList);
    menu.addSeparator();
    QAction* settings = menu.addAction(tr("&Settings…"), this, &MainWindow::showSettings);
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    settings->setMenuRole(QAction::PreferencesRole);
    menu.addSeparator();
    QAction* quit = menu.addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::fillViewMenu(QMenu& menu)
{
    m_commands->add(menu, ScreenCommand::rescan);
    menu.addSeparator();
    m_sidebarAction = menu.addAction(tr("Hide Sidebar"), this, &MainWindow::toggleSidebar);
    m_sidebarAction->setShortcut(QKeySequence(Qt::Key_F9));
    m_progressAction = menu.addAction(tr("Show Backup Progress"), this,
                                      [this] { m_context.state.setSelectedScreen(Screen::backupProgress); });
    addScreenActions(menu, m_context.state);
}

void MainWindow::showOnboardingOrMain()
{
    const bool isPassed = m_context.state.isOnboardingCompleted();
    if (centralWidget() != nullptr && isPassed == !m_main.isNull())
        return;
    if (QWidget* before = takeCentralWidget()) {
        // The click that led here may still be running in it.
        before->hide();
        before->setParent(nullptr);
        before->deleteLater();
    }
    m_main = isPassed ? new MainView(m_context, this) : nullptr;
    if (isPassed)
        setCentralWidget(m_main);
    else
        setCentralWidget(new OnboardingView(m_context.state, this));
    if (m_main) {
        m_main->focusSidebar();
        connect(m_main->detail(), &DetailView::viewChanged, this, &MainWindow::followScreen);
    }
    m_fullScanAction->setEnabled(isPassed);
    followScreen();
    updateSidebarAction();
    updateProgressAction();
}

void MainWindow::followScreen()
{
    m_commands->follow(m_main ? m_main->detail()->currentView() : nullptr);
}

void MainWindow::startFullScan()
{
    m_context.state.setSelectedScreen(Screen::scanResults);
    if (QAction* scan = offeredCommand(m_main->detail()->currentView(), ScreenCommand::fullScan))
        scan->trigger();
}

void MainWindow::showSettings()
{
    if (!m_settings) {
        m_settings = new SettingsWindow(m_context.state, this);
        m_settings->setAttribute(Qt::WA_DeleteOnClose);
    }
    bringForward(*m_settings);
}

void MainWindow::showCheck()
{
    if (!m_check) {
        m_check = new CheckCopiesWindow(m_context, this);
        m_check->setAttribute(Qt::WA_DeleteOnClose);
    }
    bringForward(*m_check);
}

void MainWindow::bringToFront()
{
    qCDebug(screensLog) << "window brought to the front";
    setWindowState(windowState() & ~Qt::WindowMinimized);
    bringForward(*this);
}

void MainWindow::closeWithoutAsking()
{
    m_mayClose = true;
}

void MainWindow::toggleSidebar()
{
    if (!m_main)
        return;
    SidebarView* sidebar = m_main->sidebar();
    sidebar->setVisible(sidebar->isHidden());
    updateSidebarAction();
}

void MainWindow::updateSidebarAction()
{
    const bool isHidden = m_main != nullptr && m_main->sidebar()->isHidden();
    m_sidebarAction->setEnabled(!m_main.isNull());
    m_sidebarAction->setText(isHidden ? tr("Show Sidebar") : tr("Hide Sidebar"));
}

void MainWindow::updateProgressAction()
{
    m_progressAction->setEnabled(m_main && m_context.state.engine().isRunning());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_context.state.engine().isRunning() && !m_mayClose) {
        event->ignore();
        askToStop();
        return;
    }
    event->accept();
    Q_EMIT closed();
}

void MainWindow::askToStop()
{
    const AlertRequest question{tr("Stop the backup?"),
                                tr("A backup is running. If you stop now, everything copied so far stays on "
                                   "the destination, and the rest is "
                                   "copied the next time."),
                                tr("Stop"), tr("Keep going"), true};
    m_context.alerts.present(this, question, [this] {
        m_mayClose = true;
        m_context.state.engine().cancel();
        close();
    });
}

} // namespace keelbright

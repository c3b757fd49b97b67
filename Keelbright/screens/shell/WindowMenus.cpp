#include "Keelbright/screens/shell/WindowMenus.h"

#include "Keelbright/screens/shared/ScreenTitle.h"
#include "Keelbright/screens/shell/SidebarView.h"
#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

namespace keelbright {

namespace {

constexpr int numberedScreens = 9;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(WindowMenus)
};

void showAbout(QWidget& window)
{
    auto* about =
        new QMessageBox(QMessageBox::NoIcon, Texts::tr("About Keel Bright"),
                        Texts::tr("Keel Bright %1").arg(programVersion()), QMessageBox::Ok, &window);
    about->setTextFormat(Qt::PlainText);
    about->setInformativeText(Texts::tr(
        "Free software under the GNU General Public License, version 3 or later.\n\n"
        "Built in: the font Material Design Icons (SIL Open Font License 1.1, its pictures CC BY 4.0). "
        "Used: Qt (GNU Lesser General Public License, version 3) and ICU (Unicode License)."));
    about->setAttribute(Qt::WA_DeleteOnClose);
    about->open();
}

} // namespace

void addBackupAction(QMenu& menu, AppState& state)
{
    QAction* backup = menu.addAction(Texts::tr("&Backup Now"), &state, [&state] {
        state.setSelectedScreen(Screen::dashboard);
        state.startBackup();
    });
    backup->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_B));
    const auto update = [backup, &state] {
        backup->setEnabled(state.isOnboardingCompleted() && !state.engine().isRunning());
    };
    QObject::connect(&state, &AppState::isOnboardingCompletedChanged, backup, update);
    QObject::connect(&state.engine(), &BackupEngine::isRunningChanged, backup, update);
    update();
}

void addScreenActions(QMenu& menu, AppState& state)
{
    int number = 0;
    for (const auto& [title, screens] : SidebarView::sections()) {
        menu.addSeparator();
        for (const Screen screen : screens) {
            QAction* action = menu.addAction(screenTitle(screen), &state,
                                             [&state, screen] { state.setSelectedScreen(screen); });
            if (++number <= numberedScreens)
                action->setShortcut(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + number)));
            const auto update = [action, &state] { action->setEnabled(state.isOnboardingCompleted()); };
            QObject::connect(&state, &AppState::isOnboardingCompletedChanged, action, update);
            update();
        }
    }
}

void addHelpMenu(QMenuBar& bar, QWidget& window)
{
    QMenu* help = bar.addMenu(Texts::tr("&Help"));
    QAction* about =
        help->addAction(Texts::tr("&About Keel Bright"), &window, [&window] { showAbout(window); });
    about->setMenuRole(QAction::AboutRole);
}

} // namespace keelbright

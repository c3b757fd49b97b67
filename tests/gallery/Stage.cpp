#include "tests/gallery/Stage.h"

#include "Keelbright/screens/check/CheckCopiesWindow.h"
#include "Keelbright/screens/shell/DetailView.h"
#include "Keelbright/screens/undo/UndoWindow.h"
#include "Keelbright/widgets/MenuButton.h"
#include "KeelbrightCore/platform/system/ReadyFuture.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/support/Frames.h"
#include "tests/support/PseudoTranslation.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TranslationFile.h"

#include <QAbstractItemView>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// What is shown may be translated; a stage is worked in English.
bool isText(const QString& shown, const QString& english)
{
    static const TranslationFile german(u"de"_s);
    return PseudoTranslation::originalOf(shown) == english || german.isTranslation(shown, english);
}

std::optional<iTunesAppInfo> answerOfTheStore(const QString& name)
{
    if (name == u"Brew Timer"_s)
        return std::nullopt;
    iTunesAppInfo info;
    info.appName = name;
    info.description =
        u"%1 keeps what you draw, wherever you are. Sketch on the train, sort at home, and find "
        "every page again years later."_s.arg(name);
    info.sellerName = u"Example Ltd."_s;
    info.genre = u"Graphics & Design"_s;
    info.averageRating = 4.6;
    info.ratingCount = 12'840;
    return info;
}

} // namespace

std::expected<FileSystemCapacity, FileError> StageFileManager::fileSystemCapacity(const FileURL& url) const
{
    const auto real = HeldFileManager::fileSystemCapacity(url);
    if (!real)
        return real;
    return FileSystemCapacity{.totalBytes = totalBytes, .freeBytes = freeBytes};
}

Stage::Stage()
    : userDefaults(std::make_unique<QSettings>(
          mac.home().appending(u".config/Keelbright/UserDefaults.ini"_s).path(), QSettings::IniFormat))
{}

Stage::~Stage()
{
    m_window.reset();
    m_state.reset();
}

MadeUpLinux Stage::becomeLinux(MadeUpLinux::Language language)
{
    files.setIsMac(false);
    m_linuxEnvironment.begin(files.homeDirectory());
    return {MadeUpFiles(mac.root(), mac.clock()()), MadeUpLinux::Desktop::gnome, language};
}

void Stage::startWithOnboarding()
{
    AppServices services{configStore, activityStore, userDefaults, folderChooser, mac.clock()};
    services.lookup = [](const QString& name) { return readyFuture(answerOfTheStore(name)); };
    services.startCopyCheck = copyCheck.starter();
    services.steadyClock = [this] { return steadyNow; };
    (void)standardOutputOf([&] { m_state = std::make_unique<AppState>(services); });
    m_window = std::make_unique<MainWindow>(ScreenContext{*m_state, alerts, workspace, fileChooser});
    m_window->resize(MainWindow::startingSize);
    m_window->show();
    m_window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
}

void Stage::start()
{
    startWithOnboarding();
    m_state->setSelectedScreen(std::nullopt);
    m_state->setIsOnboardingCompleted(true);
}

void Stage::goTo(Screen screen)
{
    if (!m_window)
        start();
    m_state->setSelectedScreen(screen);
    turnFrames();
}

QWidget& Stage::window()
{
    if (auto* check = m_window->findChild<CheckCopiesWindow*>())
        return *check;
    if (auto* undo = m_window->findChild<UndoWindow*>())
        return *undo;
    return *m_window;
}

QList<QSize> Stage::sizes()
{
    if (qobject_cast<CheckCopiesWindow*>(&window()) != nullptr)
        return {CheckCopiesWindow::startingSize, CheckCopiesWindow::minimumWindowSize};
    if (qobject_cast<UndoWindow*>(&window()) != nullptr)
        return {UndoWindow::startingSize, UndoWindow::minimumWindowSize};
    return {MainWindow::startingSize, MainWindow::minimumWindowSize};
}

void Stage::undo()
{
    for (QAction* action : m_window->findChildren<QAction*>()) {
        if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_Z))
            action->trigger();
    }
    waitUntil([this] { return &window() != m_window.get(); });
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    turnFrames();
}

void Stage::openCheck()
{
    if (!m_window)
        start();
    m_window->showCheck();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
    turnFrames();
}

QWidget& Stage::screen()
{
    if (&window() != m_window.get())
        return window();
    const auto* detail = m_window->findChild<DetailView*>();
    return detail != nullptr ? *detail->currentView() : *m_window->centralWidget();
}

void Stage::press(const QString& name)
{
    for (auto* button : screen().findChildren<QAbstractButton*>()) {
        if (isText(button->accessibleName(), name) && button->isVisible()) {
            button->click();
            turnFrames();
            return;
        }
    }
    ADD_FAILURE() << "no button " << name.toStdString();
}

void Stage::choose(const QString& title)
{
    for (auto* list : screen().findChildren<QAbstractItemView*>()) {
        for (int row = 0; list->isVisible() && row < list->model()->rowCount(); ++row) {
            const QModelIndex index = list->model()->index(row, 0);
            if (isText(index.data().toString(), title)) {
                list->setCurrentIndex(index);
                turnFrames();
                return;
            }
        }
    }
    ADD_FAILURE() << "no row " << title.toStdString();
}

void Stage::pick(const QString& choice)
{
    for (const auto* button : screen().findChildren<MenuButton*>()) {
        if (!button->isVisible())
            continue;
        for (QAction* action : button->choiceMenu()->actions()) {
            if (isText(action->text(), choice)) {
                action->trigger();
                turnFrames();
                return;
            }
        }
    }
    ADD_FAILURE() << "no choice " << choice.toStdString();
}

void Stage::write(const QString& name, const QString& text)
{
    for (auto* field : screen().findChildren<QLineEdit*>()) {
        if (isText(field->accessibleName(), name) && field->isVisible()) {
            field->setText(text);
            turnFrames();
            return;
        }
    }
    ADD_FAILURE() << "no field " << name.toStdString();
}

QStringList Stage::texts()
{
    QStringList texts;
    for (const auto* label : screen().findChildren<QLabel*>()) {
        if (label->isVisible())
            texts.append(label->text());
    }
    return texts;
}

void Stage::waitUntil(const std::function<bool()>& condition)
{
    constexpr int patience = 30'000;
    EXPECT_TRUE(QTest::qWaitFor(condition, patience)) << "what was waited for did not come";
}

void Stage::settle()
{
    // A result that arrives can start the next piece of work.
    for (int quietTurns = 0; quietTurns < 3; ++quietTurns) {
        if (TaskPools::isAtWork())
            quietTurns = 0;
        waitUntil([] { return !TaskPools::isAtWork(); });
        turnFrames();
    }
}

void Stage::turnFrames()
{
    testing::turnFrames();
}

void Stage::raiseContrast()
{
    Theme::instance().setContrastHigh(true);
    turnFrames();
}

void Stage::chooseDrive()
{
    m_state->setSelectedDestination(BackupDestination{QUuid::createUuid(), mira.backupDrive()});
}

void Stage::backUp()
{
    EXPECT_TRUE(m_state->confirmBackup());
    waitUntil([this] { return !m_state->engine().isRunning(); });
    settle();
}

} // namespace keelbright::testing

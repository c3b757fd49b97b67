#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/rows/RowButtons.h"
#include "Keelbright/widgets/rows/RowWidget.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"
#include "tests/screens/shared/ListDriver.h"
#include "tests/support/PseudoTranslation.h"

#include <QContextMenuEvent>
#include <QTest>
#include <algorithm>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

enum class Way { paintedButton, buttonOfTheCurrentRow, contextMenu, deleteKey };

/// One way to have one action of one row done.
struct Press
{
    QString list;   ///< its name
    QString action; ///< its name
    Way way = Way::paintedButton;
    QString row; ///< its title
    std::function<void()> perform;
};

QString nameOf(const QWidget& widget)
{
    return PseudoTranslation::originalOf(widget.accessibleName());
}

void triggerInMenu(const QWidget& owner, qsizetype entry)
{
    const auto* menu = owner.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QList<QAction*> entries = menu->actions();
    entries.removeIf([](const QAction* action) { return action->isSeparator(); });
    entries.at(entry)->trigger();
}

void pressButtonOfTheCurrentRow(RowListView& list, int row, qsizetype action)
{
    list.setCurrentRow(row);
    for (const auto* buttons : list.window()->findChildren<RowButtons*>()) {
        if (buttons->parentWidget() == list.parentWidget() && buttons->isVisible())
            buttons->findChildren<Button*>().at(action)->click();
    }
}

void addPresses(RowListView& list, int row, QList<Press>& presses)
{
    const ListRow shown = list.rowModel()->rowAt(row);
    const QList<RowAction> all = shown.actions + shown.menuActions;
    for (qsizetype i = 0; i < all.size(); ++i) {
        Press press{.list = nameOf(list),
                    .action = PseudoTranslation::originalOf(all.at(i).name),
                    .row = shown.title,
                    .perform = {}};
        const auto add = [&](Way way, std::function<void()> perform) {
            press.way = way;
            press.perform = std::move(perform);
            presses.append(press);
        };
        if (i < shown.actions.size()) {
            add(Way::paintedButton, [&list, row, i] { ListDriver(list).clickAction(row, i); });
            add(Way::buttonOfTheCurrentRow, [&list, row, i] { pressButtonOfTheCurrentRow(list, row, i); });
        }
        add(Way::contextMenu, [&list, row, i] {
            (void)ListDriver(list).openMenu(row);
            triggerInMenu(list, i);
        });
        if (all.at(i).isDelete) {
            add(Way::deleteKey, [&list, row] {
                list.setCurrentRow(row);
                QTest::keyClick(&list, Qt::Key_Delete);
            });
        }
    }
}

void addPresses(TreemapView& map, int cell, QList<Press>& presses)
{
    const FolderSizeNode node = map.cells().at(cell).node;
    const QList<RowAction> actions = storageNodeActions(node);
    for (qsizetype i = 0; i < actions.size(); ++i) {
        Press press{.list = nameOf(map),
                    .action = PseudoTranslation::originalOf(actions.at(i).name),
                    .way = Way::contextMenu,
                    .row = node.name,
                    .perform = {}};
        press.perform = [&map, cell, i] {
            const QPoint place = map.cells().at(cell).rect.center().toPoint();
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, map.mapToGlobal(place));
            QApplication::sendEvent(&map, &event);
            triggerInMenu(map, i);
        };
        presses.append(press);
        if (!actions.at(i).isDelete)
            continue;
        press.way = Way::deleteKey;
        press.perform = [&map, cell] {
            map.setCurrentCell(cell);
            QTest::keyClick(&map, Qt::Key_Delete);
        };
        presses.append(press);
    }
}

void addPresses(RowWidget& row, QList<Press>& presses)
{
    const QString title = PseudoTranslation::originalOf(row.titleLabel()->text());
    QList<Button*> buttons = row.findChildren<Button*>(Qt::FindDirectChildrenOnly);
    buttons.removeIf([](const Button* button) { return !button->isVisible(); });
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        // Some name the row that they belong to.
        const QString action = nameOf(*buttons.at(i)).remove(title).trimmed();
        presses.append({u"Row"_s, action, Way::paintedButton, title,
                        [button = buttons.at(i)] { QTest::mouseClick(button, Qt::LeftButton); }});
        presses.append({u"Row"_s, action, Way::contextMenu, title, [&row, i] {
                            const QPoint place = row.rect().center();
                            QContextMenuEvent event(QContextMenuEvent::Mouse, place, row.mapToGlobal(place));
                            QApplication::sendEvent(&row, &event);
                            triggerInMenu(row, i);
                        }});
    }
}

/// All that can be done with the rows and the cells on screen.
QList<Press> pressesOn(QWidget& screen)
{
    QList<Press> presses;
    for (auto* list : screen.findChildren<RowListView*>()) {
        for (int row = 0; list->isVisible() && row < list->rowModel()->rowCount(); ++row) {
            if (list->rowModel()->headerAt(row).isEmpty())
                addPresses(*list, row, presses);
        }
    }
    for (auto* map : screen.findChildren<TreemapView*>()) {
        for (int cell = 0; map->isVisible() && cell < map->cells().size(); ++cell)
            addPresses(*map, cell, presses);
    }
    for (auto* row : screen.findChildren<RowWidget*>()) {
        if (row->isVisible())
            addPresses(*row, presses);
    }
    return presses;
}

QString lastNameOf(const QString& path)
{
    return FileURL::fromPath(path).lastPathComponent();
}

void expectRevealed(Stage& stage, const QString& row)
{
    ASSERT_EQ(stage.workspace.revealed.size(), 1);
    EXPECT_EQ(lastNameOf(stage.workspace.revealed.first()), row);
}

void expectOpened(Stage& stage, const QString&)
{
    EXPECT_EQ(stage.workspace.opened.size(), 1);
}

void expectNameInTrash(Stage& stage, const QString& name)
{
    ASSERT_EQ(stage.alerts.requests().size(), 1);
    EXPECT_TRUE(PseudoTranslation::originalOf(stage.alerts.requests().first().title).contains(name));
    const FileURL trashed = stage.mac.home().appending(u".local/share/Trash/files"_s).appending(name);
    EXPECT_FALSE(stage.files.fileExists(trashed).exists);
    stage.alerts.confirm();
    EXPECT_TRUE(stage.files.fileExists(trashed).exists);
}

void expectBundleTrashed(Stage& stage, const QString& row)
{
    ASSERT_EQ(stage.alerts.requests().size(), 1);
    EXPECT_TRUE(PseudoTranslation::originalOf(stage.alerts.requests().first().title).contains(row));
    const FileURL trashed = stage.mac.home().appending(u".local/share/Trash/files"_s);
    stage.alerts.confirm();
    EXPECT_TRUE(stage.files.fileExists(trashed.appending(row + u".app"_s)).exists);
}

void expectAddedToBackup(Stage& stage, const QString& row)
{
    ASSERT_EQ(stage.state().customSources().size(), 1);
    EXPECT_EQ(stage.state().customSources().first().url.lastPathComponent(), row);
}

void expectOrganised(Stage& stage, const QString& row)
{
    EXPECT_EQ(stage.state().selectedScreen(), Screen::organizer);
    stage.settle();
    // The storage browser has only looked at the folder above.
    EXPECT_EQ(stage.files.looksAt(stage.mac.home().appending(row)), 1);
}

void expectAnotherScreen(Stage& stage, const QString&)
{
    ASSERT_TRUE(stage.state().selectedScreen().has_value());
    EXPECT_NE(stage.state().selectedScreen(), Screen::scanResults);
}

void expectDashboard(Stage& stage, const QString&)
{
    EXPECT_EQ(stage.state().selectedScreen(), Screen::dashboard);
}

void expectReport(Stage& stage, const QString&)
{
    EXPECT_EQ(stage.state().selectedScreen(), Screen::backupReport);
}

void expectDestinationAsked(Stage& stage, const QString&)
{
    EXPECT_EQ(stage.folderChooser.requests().size(), 1);
}

void expectRemovedFromBackup(Stage& stage, const QString& row)
{
    for (const BackupSource& source : stage.state().customSources())
        EXPECT_NE(source.url.lastPathComponent(), row);
}

/// An action of the rows of a screen, and what it brings about.
struct RowActionCase
{
    const char* screen;
    const char* state;
    const char* list;
    const char* action;
    void (*expectEffect)(Stage& stage, const QString& row);
    /// What the desktop is to answer, where the action asks it.
    void (*prepare)(Stage& stage) = nullptr;
};

void dismissChooser(Stage& stage)
{
    stage.folderChooser.willBeDismissed();
}

const QList<RowActionCase>& rowActionCases()
{
    static const QList<RowActionCase> cases{
        {"dashboard", "protected", "Row", "Change", expectDestinationAsked, dismissChooser},
        {"dashboard", "protected", "Row", "View Report", expectReport},
        {"protected-items", "custom", "Row", "Remove", expectRemovedFromBackup},
        {"app-manager", "list", "Applications", "Reveal in Finder", expectOpened},
        {"app-manager", "list", "Applications", "Remove…", expectBundleTrashed},
        {"app-manager", "detail", "Associated Files", "Reveal in Finder", expectRevealed},
        {"junk-cleaner", "selected", "Junk items", "Reveal in Finder", expectRevealed},
        {"storage", "list", "Entries", "Add to Backup Sources", expectAddedToBackup},
        {"storage", "list", "Entries", "Organise this folder", expectOrganised},
        {"storage", "list", "Entries", "Reveal in Finder", expectRevealed},
        {"storage", "list", "Entries", "Move to Trash", expectNameInTrash},
        {"storage", "treemap", "Treemap", "Add to Backup Sources", expectAddedToBackup},
        {"storage", "treemap", "Treemap", "Organise this folder", expectOrganised},
        {"storage", "treemap", "Treemap", "Reveal in Finder", expectRevealed},
        {"storage", "treemap", "Treemap", "Move to Trash", expectNameInTrash},
        {"storage", "largest", "Largest files", "Reveal in Finder", expectRevealed},
        {"storage", "largest", "Largest files", "Move to Trash", expectNameInTrash},
        {"organizer", "found", "Files", "Reveal in Finder", expectRevealed},
        {"scan-results", "report", "Findings", "Fix", expectAnotherScreen},
        {"scan-results", "report", "Findings", "Back Up", expectDashboard},
        {"restore-browser", "snapshots", "Row", "Open in Finder", expectOpened},
        {"restore-browser", "snapshots", "Snapshots", "Open", expectOpened},
        {"check", "faults", "Findings", "Show in the file manager", expectRevealed},
        {"settings", "chosen", "Row", "Change", expectDestinationAsked, dismissChooser},
        {"settings", "chosen", "Row", "Remove", expectRemovedFromBackup},
    };
    return cases;
}

const ScreenState& stateOf(const RowActionCase& tried)
{
    static const QList<ScreenState> states = screenStates();
    const auto found = std::ranges::find_if(states, [&tried](const ScreenState& state) {
        return QLatin1StringView(state.screen) == QLatin1StringView(tried.screen) &&
               QLatin1StringView(state.name) == QLatin1StringView(tried.state);
    });
    EXPECT_NE(found, states.end());
    return *found;
}

bool isOf(const Press& press, const RowActionCase& tried)
{
    return press.list == QString::fromUtf8(tried.list) && press.action == QString::fromUtf8(tried.action);
}

void PrintTo(const RowActionCase& tried, std::ostream* stream)
{
    *stream << tried.screen << ": " << tried.list << ", " << tried.action;
}

std::string testNameOf(const QStringList& texts)
{
    static const QRegularExpression others(u"[^A-Za-z0-9]+"_s);
    return texts.join(u' ').replace(others, u"_"_s).toStdString();
}

std::string nameOfCase(const ::testing::TestParamInfo<RowActionCase>& instance)
{
    const RowActionCase& tried = instance.param;
    return testNameOf(
        {QString::fromUtf8(tried.screen), QString::fromUtf8(tried.list), QString::fromUtf8(tried.action)});
}

std::string nameOfState(const ::testing::TestParamInfo<ScreenState>& instance)
{
    return testNameOf({QString::fromLatin1(instance.param.screen), QString::fromLatin1(instance.param.name)});
}

class RowActionTests : public ::testing::TestWithParam<RowActionCase>
{
protected:
    const PseudoTranslation translation;
};

class RowActionCoverageTests : public ::testing::TestWithParam<ScreenState>
{
protected:
    const PseudoTranslation translation;
};

} // namespace

TEST_P(RowActionTests, hasItsEffectInATranslation)
{
    const RowActionCase& tried = GetParam();
    QSet<Way> done;
    for (bool isMore = true; isMore;) {
        isMore = false;
        Stage stage;
        stateOf(tried).play(stage);
        for (const Press& press : pressesOn(stage.screen())) {
            if (!isOf(press, tried) || done.contains(press.way))
                continue;
            SCOPED_TRACE(static_cast<int>(press.way));
            done.insert(press.way);
            isMore = true;
            if (tried.prepare != nullptr)
                tried.prepare(stage);
            press.perform();
            tried.expectEffect(stage, press.row);
            stage.settle();
            break;
        }
    }
    EXPECT_FALSE(done.isEmpty()) << "no row offers it";
}

INSTANTIATE_TEST_SUITE_P(Actions, RowActionTests, ::testing::ValuesIn(rowActionCases()), nameOfCase);

TEST_P(RowActionCoverageTests, everyActionOfTheStateIsTried)
{
    Stage stage;
    GetParam().play(stage);
    for (const Press& press : pressesOn(stage.screen())) {
        const bool isTried = std::ranges::any_of(rowActionCases(), [&](const RowActionCase& tried) {
            return QLatin1StringView(tried.screen) == QLatin1StringView(GetParam().screen) &&
                   isOf(press, tried);
        });
        EXPECT_TRUE(isTried) << qPrintable(press.list) << ", " << qPrintable(press.action);
    }
}

INSTANTIATE_TEST_SUITE_P(States, RowActionCoverageTests, ::testing::ValuesIn(screenStates()), nameOfState);

} // namespace keelbright::testing

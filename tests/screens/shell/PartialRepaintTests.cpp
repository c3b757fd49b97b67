#include "Keelbright/screens/shell/SidebarView.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

#include <QApplication>
#include <QBackingStore>
#include <QListView>
#include <QPointer>
#include <QSet>
#include <QTest>
#include <cmath>

// What repaints of single parts leave on the screen. Runs at scales such as 1.25, at which the edges of
// these parts lie within a pixel.
namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The states that are drawn at double scale, which are the fullest ones, and the first state of each
/// screen that has none of these.
QList<ScreenState> fullStates()
{
    QSet<QString> screens;
    QList<ScreenState> states;
    for (const ScreenState& state : screenStates()) {
        if (state.alsoAtDoubleScale) {
            screens.insert(QString::fromLatin1(state.screen));
            states.append(state);
        }
    }
    for (const ScreenState& state : screenStates()) {
        const QString screen = QString::fromLatin1(state.screen);
        if (!screens.contains(screen)) {
            screens.insert(screen);
            states.append(state);
        }
    }
    return states;
}

class PartialRepaintTests : public ::testing::TestWithParam<ScreenState>
{
protected:
    PartialRepaintTests()
    {
        Theme::instance().install();
        QApplication::setCursorFlashTime(0);
        GetParam().play(stage);
        stage.settle();
    }

    [[nodiscard]] QWidget& window() { return stage.window(); }

    /// What is on the screen, painted in any number of steps.
    [[nodiscard]] QImage screenshot()
    {
        Stage::turnFrames();
        const auto* image = dynamic_cast<const QImage*>(window().backingStore()->paintDevice());
        EXPECT_NE(image, nullptr);
        return image != nullptr ? image->copy() : QImage();
    }

    /// Moves the pointer over every row that can be seen and off the list again.
    void hoverRows(QAbstractItemView& list)
    {
        QWidget& viewport = *list.viewport();
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QRect rect = list.visualRect(list.model()->index(row, 0));
            if (!viewport.rect().contains(rect.center()))
                continue;
            QTest::mouseMove(&viewport, rect.center());
            Stage::turnFrames();
        }
        QTest::mouseMove(&viewport, QPoint(-1, -1));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&viewport, &leave);
        Stage::turnFrames();
    }

    /// Makes some rows current, one after the other, as the arrow keys do.
    void walkRows(QAbstractItemView& list)
    {
        for (const int key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
            QTest::keyClick(&list, Qt::Key(key));
            Stage::turnFrames();
        }
    }

    void walkWithTab()
    {
        constexpr int stops = 24;
        for (int stop = 0; stop < stops; ++stop) {
            QWidget* focused = QApplication::focusWidget();
            QTest::keyClick(focused != nullptr ? focused : &window(), Qt::Key_Tab);
            Stage::turnFrames();
        }
    }

    /// A choice in one of them may destroy another.
    [[nodiscard]] QList<QPointer<QAbstractItemView>> shownLists()
    {
        QList<QPointer<QAbstractItemView>> lists;
        for (auto* list : stage.screen().findChildren<QAbstractItemView*>()) {
            if (list->isVisible() && list->model() != nullptr)
                lists.append(list);
        }
        return lists;
    }

    Stage stage;
};

std::string nameOfState(const ::testing::TestParamInfo<ScreenState>& info)
{
    const QString name = QString::fromLatin1(info.param.screen) + u'_' + QString::fromLatin1(info.param.name);
    return QString(name).replace(u'-', u'_').toStdString();
}

/// The first row of pixels in which the pictures differ, and how many rows do; empty where none does.
std::string difference(const QImage& left, const QImage& right)
{
    int first = -1;
    int rows = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            if (left.pixel(x, y) == right.pixel(x, y))
                continue;
            first = first < 0 ? y : first;
            ++rows;
            break;
        }
    }
    return rows == 0 ? std::string()
                     : std::to_string(rows) + " rows of pixels differ, the first is " + std::to_string(first);
}

} // namespace

TEST_P(PartialRepaintTests, leaveWhatAFullRepaintPaints)
{
    const double scale = window().devicePixelRatioF();
    ASSERT_NE(scale, std::floor(scale)) << "QT_SCALE_FACTOR has to be a fraction";
    const QList<QPointer<QAbstractItemView>> lists = shownLists();
    for (auto* sidebar : window().findChildren<SidebarView*>())
        hoverRows(*sidebar->list());
    for (QAbstractItemView* list : lists)
        hoverRows(*list);
    for (const QPointer<QAbstractItemView>& list : lists) {
        if (list && list->isVisible())
            walkRows(*list);
    }
    walkWithTab();
    const QImage inSteps = screenshot();
    window().repaint();
    EXPECT_EQ(difference(inSteps, screenshot()), "");
}

INSTANTIATE_TEST_SUITE_P(States, PartialRepaintTests, ::testing::ValuesIn(fullStates()), nameOfState);

/// The walk through the sidebar, which repaints the rows that are left and entered.
TEST(SidebarRepaint, leavesNothingOfTheRowsThatWereSelected)
{
    Stage stage;
    Theme::instance().install();
    QApplication::setCursorFlashTime(0);
    stage.goTo(Screen::dashboard);
    stage.settle();
    for (const Screen screen : {Screen::protectedItems, Screen::dashboard, Screen::protectedItems,
                                Screen::activityLog, Screen::settings}) {
        stage.goTo(screen);
        stage.settle();
    }
    const auto shot = [&stage] {
        Stage::turnFrames();
        return dynamic_cast<const QImage&>(*stage.window().backingStore()->paintDevice()).copy();
    };
    const QImage inSteps = shot();
    stage.window().repaint();
    EXPECT_EQ(difference(inSteps, shot()), "");
}

} // namespace keelbright::testing

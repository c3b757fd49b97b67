#include "Keelbright/widgets/theme/Theme.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"
#include "tests/screens/shell/ScreenLooks.h"
#include "tests/support/WindowChecks.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <algorithm>

namespace keelbright::testing {

namespace {

/// Each screen in each of its states, in the real window.
class EveryScreenTests : public ::testing::TestWithParam<ScreenState>
{
protected:
    EveryScreenTests()
    {
        Theme::instance().install();
        QApplication::setCursorFlashTime(0);
        GetParam().play(stage);
    }

    [[nodiscard]] QWidget& window() { return stage.window(); }

    /// Presses Tab and gives the widget that has the focus then.
    QWidget* pressTab()
    {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &window(), Qt::Key_Tab);
        return QApplication::focusWidget();
    }

    [[nodiscard]] QImage pictureAround(const QWidget& control)
    {
        Stage::turnFrames();
        const QRect around(control.mapTo(&window(), QPoint()), control.size());
        return window().grab(around.adjusted(-4, -4, 4, 4)).toImage();
    }

    Stage stage;
};

/// Whether another button of the control's group was reached: Tab stops at one of them only.
bool isReachedByArrows(const QWidget& control, const QSet<QWidget*>& reached)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->autoExclusive() &&
           std::ranges::any_of(reached, [&control](const QWidget* other) {
               return other->parentWidget() == control.parentWidget() &&
                      qobject_cast<const QAbstractButton*>(other) != nullptr;
           });
}

} // namespace

TEST_P(EveryScreenTests, everyControlHasAName)
{
    EXPECT_FALSE(controlsIn(window()).isEmpty());
    for (const QWidget* control : controlsIn(window()))
        EXPECT_FALSE(control->accessibleName().isEmpty()) << nameOf(*control).toStdString();
}

TEST_P(EveryScreenTests, everyControlIsReachedByTab)
{
    QSet<QWidget*> reached;
    while (QWidget* next = pressTab()) {
        if (reached.contains(next))
            break;
        reached.insert(next);
    }
    for (QWidget* control : controlsIn(window()))
        EXPECT_TRUE(reached.contains(control) || isReachedByArrows(*control, reached))
            << nameOf(*control).toStdString();
}

TEST_P(EveryScreenTests, theFocusCanBeSeen)
{
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::instance().setScheme(scheme);
        Stage::turnFrames();
        QSet<QWidget*> seen;
        while (QWidget* control = pressTab()) {
            if (seen.contains(control))
                break;
            seen.insert(control);
            const QImage with = pictureAround(*control);
            control->clearFocus();
            const QImage without = pictureAround(*control);
            EXPECT_TRUE(with != without) << nameOf(*control).toStdString();
            control->setFocus();
        }
        EXPECT_FALSE(seen.isEmpty());
    }
}

TEST_P(EveryScreenTests, everyTextCanBeRead)
{
    EXPECT_EQ(faultsInEveryLook(stage, faintTexts), "");
}

TEST_P(EveryScreenTests, noTextLiesOnAnother)
{
    EXPECT_EQ(faultsInEveryLook(stage, coveredTexts), "");
}

TEST_P(EveryScreenTests, noTextIsCutOffAtASide)
{
    EXPECT_EQ(faultsInEveryLook(stage, cutTexts), "");
}

INSTANTIATE_TEST_SUITE_P(States, EveryScreenTests, ::testing::ValuesIn(screenStates()), testNameOfState);

} // namespace keelbright::testing

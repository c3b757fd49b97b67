#include "Keelbright/screens/shell/DetailView.h"

#include "Keelbright/screens/SettingsView.h"
#include "Keelbright/screens/shell/ScreenFactory.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QPointer>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class DetailViewTest : public testing::ScreenFixture
{};

} // namespace

TEST_F(DetailViewTest, noSelectedScreenShowsTheWelcomeView)
{
    state->setSelectedScreen(std::nullopt);
    const DetailView detail(context());
    EXPECT_EQ(textsIn(detail), QStringList({u"Welcome to Keel Bright"_s,
                                            u"Select an item from the sidebar to get started."_s}));
    EXPECT_EQ(detail.findChild<SymbolLabel*>()->key(), u"shippingbox.fill"_s);
}

TEST_F(DetailViewTest, everyScreenHasAView)
{
    DetailView detail(context());
    for (const Screen screen : allScreens()) {
        state->setSelectedScreen(screen);
        ASSERT_NE(detail.currentView(), nullptr) << rawValue(screen).toStdString();
        EXPECT_TRUE(detail.currentView()->isVisibleTo(&detail));
        EXPECT_EQ(testing::accessibleName(&detail), rawValue(screen));
    }
}

TEST_F(DetailViewTest, switchesAtOnceAndDestroysTheViewThatWasLeft)
{
    state->setSelectedScreen(Screen::settings);
    const DetailView detail(context());
    const QPointer<QWidget> left = detail.currentView();
    EXPECT_NE(qobject_cast<SettingsView*>(left), nullptr);
    state->setSelectedScreen(std::nullopt);
    EXPECT_NE(detail.currentView(), left);
    settle();
    EXPECT_TRUE(left.isNull());
}

TEST_F(DetailViewTest, keepsTheViewIfTheSameScreenIsSelectedAgain)
{
    state->setSelectedScreen(Screen::settings);
    const DetailView detail(context());
    const QWidget* view = detail.currentView();
    state->setSelectedScreen(Screen::settings);
    EXPECT_EQ(detail.currentView(), view);
}

} // namespace keelbright

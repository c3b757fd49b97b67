#include "Keelbright/screens/OnboardingView.h"

#include "Keelbright/widgets/StepStack.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenFixture.h"

#include <QTest>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

class OnboardingViewTest : public testing::ScreenFixture
{
protected:
    OnboardingViewTest()
    {
        view.resize(1180, 760);
        view.show();
    }

    [[nodiscard]] QStringList symbols() const
    {
        QStringList keys;
        for (const auto* symbol : view.findChildren<SymbolLabel*>()) {
            if (symbol->isVisible())
                keys.append(symbol->key());
        }
        return keys;
    }

    void press(const QString& caption)
    {
        Button* button = buttonIn(view, caption);
        ASSERT_NE(button, nullptr) << caption.toStdString();
        button->click();
    }

    OnboardingView view{*state};
};

} // namespace

TEST_F(OnboardingViewTest, theWelcomeStepSaysWhatTheProgramDoes)
{
    EXPECT_EQ(view.step(), 0);
    EXPECT_EQ(
        textsIn(view),
        QStringList({u"Keel Bright"_s, u"A calm, minimal backup for your personal Mac environment."_s,
                     u"Personal files"_s,
                     u"Desktop, Documents, Pictures — copied cleanly to your backup drive."_s,
                     u"Developer setup metadata"_s,
                     u"Dotfile presence, shell info, and installed app names saved in a recovery manifest."_s,
                     u"Storage browser"_s,
                     u"See exactly what's taking up space in your backup, folder by folder."_s}));
    EXPECT_EQ(symbols(), QStringList({u"shippingbox.fill"_s, u"folder.fill"_s, u"terminal.fill"_s,
                                      u"chart.bar.doc.horizontal"_s}));
    EXPECT_EQ(buttonIn(view, u"Back"_s), nullptr);
    EXPECT_NE(buttonIn(view, u"Continue"_s), nullptr);
}

TEST_F(OnboardingViewTest, theDestinationStepAsksWhereBackupsGo)
{
    press(u"Continue"_s);
    EXPECT_EQ(view.step(), 1);
    EXPECT_EQ(textsIn(view),
              QStringList({u"Choose a Backup Destination"_s,
                           u"Select an external drive or a local folder. Keel Bright will create a "
                           "readable folder structure inside."_s,
                           u"You can change this later in Settings."_s}));
    EXPECT_EQ(symbols(), QStringList({u"externaldrive.fill"_s}));
    EXPECT_NE(buttonIn(view, u"Back"_s), nullptr);
    EXPECT_NE(buttonIn(view, u"Get Started"_s), nullptr);
    Button* choose = buttonIn(view, u"Choose Destination…"_s);
    ASSERT_NE(choose, nullptr);
    EXPECT_EQ(choose->symbol(), u"externaldrive.badge.plus"_s);
}

TEST_F(OnboardingViewTest, theButtonTakesTheNameOfTheChosenDestination)
{
    press(u"Continue"_s);
    chooser.willChoose({drive()});
    press(u"Choose Destination…"_s);
    Button* chosen = buttonIn(view, u"Anchor"_s);
    ASSERT_NE(chosen, nullptr);
    EXPECT_EQ(chosen->symbol(), u"checkmark.circle.fill"_s);
    EXPECT_EQ(state->selectedDestination()->url, drive());
}

TEST_F(OnboardingViewTest, cancellingTheChooserLeavesTheButtonAsItWas)
{
    press(u"Continue"_s);
    chooser.willBeDismissed();
    press(u"Choose Destination…"_s);
    EXPECT_NE(buttonIn(view, u"Choose Destination…"_s), nullptr);
    EXPECT_FALSE(state->selectedDestination());
    chooseDrive();
    chooser.willBeDismissed();
    press(u"Anchor"_s);
    EXPECT_NE(buttonIn(view, u"Anchor"_s), nullptr);
}

TEST_F(OnboardingViewTest, goingBackAndForthKeepsTheDestination)
{
    press(u"Continue"_s);
    chooser.willChoose({drive()});
    press(u"Choose Destination…"_s);
    press(u"Back"_s);
    EXPECT_EQ(view.step(), 0);
    EXPECT_EQ(buttonIn(view, u"Back"_s), nullptr);
    press(u"Continue"_s);
    EXPECT_NE(buttonIn(view, u"Anchor"_s), nullptr);
}

TEST_F(OnboardingViewTest, getStartedNeedsNoDestination)
{
    press(u"Continue"_s);
    EXPECT_FALSE(state->isOnboardingCompleted());
    press(u"Get Started"_s);
    EXPECT_TRUE(state->isOnboardingCompleted());
    EXPECT_FALSE(state->selectedDestination());
}

TEST_F(OnboardingViewTest, isPassedByEnterAlone)
{
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    QTest::keyClick(view.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(view.step(), 1);
    QTest::keyClick(view.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(state->isOnboardingCompleted());
}

TEST_F(OnboardingViewTest, pressingBackByKeyboardLeavesTheFocusOnTheMainButton)
{
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    press(u"Continue"_s);
    Button* back = buttonIn(view, u"Back"_s);
    back->setFocus();
    QTest::keyClick(back, Qt::Key_Return);
    EXPECT_EQ(view.focusWidget(), buttonIn(view, u"Continue"_s));
}

TEST_F(OnboardingViewTest, aVeryLongDestinationNameIsCutAndIsTheWholeAccessibleName)
{
    press(u"Continue"_s);
    const QString name(250, u'm');
    state->setSelectedDestination(BackupDestination{QUuid::createUuid(), drive().appending(name)});
    view.grab();
    Button* button = buttonIn(view, name);
    ASSERT_NE(button, nullptr);
    EXPECT_LE(button->width(), 480);
    EXPECT_EQ(testing::accessibleName(button), name);
}

} // namespace keelbright

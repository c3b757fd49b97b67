#include "Keelbright/widgets/AlertDialog.h"

#include "Keelbright/widgets/Button.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

AlertRequest reset(bool isDestructive = true)
{
    return {u"Reset to Defaults"_s, u"This will remove any custom folders."_s, u"Reset"_s, u"Cancel"_s,
            isDestructive};
}

class AlertPresenterTest : public ::testing::Test
{
protected:
    AlertDialog* present(const AlertRequest& request)
    {
        window.show();
        presenter.present(&window, request, [this] { ++confirmations; });
        return window.findChild<AlertDialog*>();
    }

    AlertRequest watchedReset()
    {
        AlertRequest request = reset();
        request.dismissed = [this] { ++dismissals; };
        return request;
    }

    /// Destroys a closed dialog.
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QWidget window;
    DialogAlertPresenter presenter;
    int confirmations = 0;
    int dismissals = 0;
};

} // namespace

TEST_F(AlertPresenterTest, showsItsTextsAndReturnsAtOnce)
{
    AlertDialog* dialog = present(reset());
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->windowTitle(), u"Reset to Defaults"_s);
    QStringList texts;
    for (const auto* label : dialog->findChildren<QLabel*>())
        texts.append(label->text());
    EXPECT_EQ(texts, QStringList({u"Reset to Defaults"_s, u"This will remove any custom folders."_s}));
    EXPECT_EQ(dialog->actionButton()->caption(), u"Reset"_s);
    EXPECT_EQ(dialog->cancelButton()->caption(), u"Cancel"_s);
    EXPECT_EQ(testing::accessibleName(dialog), u"Reset to Defaults"_s);
    EXPECT_EQ(confirmations, 0);
}

TEST_F(AlertPresenterTest, theActionConfirmsOnce)
{
    QPointer<AlertDialog> dialog = present(reset());
    dialog->actionButton()->click();
    settle();
    EXPECT_EQ(confirmations, 1);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(AlertPresenterTest, theOtherButtonConfirmsNothing)
{
    present(reset())->cancelButton()->click();
    EXPECT_EQ(confirmations, 0);
}

TEST_F(AlertPresenterTest, escapeCancels)
{
    QPointer<AlertDialog> dialog = present(reset());
    QTest::keyClick(dialog, Qt::Key_Escape);
    settle();
    EXPECT_EQ(confirmations, 0);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(AlertPresenterTest, reportsEachWayToCancelOnce)
{
    present(watchedReset())->cancelButton()->click();
    settle();
    EXPECT_EQ(dismissals, 1);
    QTest::keyClick(present(watchedReset()), Qt::Key_Escape);
    settle();
    EXPECT_EQ(dismissals, 2);
    present(watchedReset())->close();
    settle();
    EXPECT_EQ(dismissals, 3);
    EXPECT_EQ(confirmations, 0);
}

TEST_F(AlertPresenterTest, theActionDoesNotCancel)
{
    present(watchedReset())->actionButton()->click();
    settle();
    EXPECT_EQ(confirmations, 1);
    EXPECT_EQ(dismissals, 0);
}

TEST_F(AlertPresenterTest, theSecondActionConfirmsOnlyItself)
{
    int second = 0;
    AlertRequest request = watchedReset();
    request.secondAction = u"Reset a Little"_s;
    request.secondConfirmed = [&second] { ++second; };
    QPointer<AlertDialog> dialog = present(request);
    EXPECT_EQ(dialog->secondActionButton()->caption(), u"Reset a Little"_s);
    EXPECT_EQ(dialog->secondActionButton()->kind(), Button::Kind::destructive);
    EXPECT_EQ(dialog->focusWidget(), dialog->cancelButton());
    // From the top: the actions, then the button that cancels, none of them cut.
    EXPECT_LT(dialog->actionButton()->y(), dialog->secondActionButton()->y());
    EXPECT_LT(dialog->secondActionButton()->y(), dialog->cancelButton()->y());
    EXPECT_GE(dialog->secondActionButton()->width(), dialog->secondActionButton()->sizeHint().width());
    dialog->secondActionButton()->click();
    settle();
    EXPECT_EQ(second, 1);
    EXPECT_EQ(confirmations, 0);
    EXPECT_EQ(dismissals, 0);
    EXPECT_TRUE(dialog.isNull());
}

TEST_F(AlertPresenterTest, theOtherButtonsDoNotPressTheSecondAction)
{
    int second = 0;
    AlertRequest request = reset();
    request.secondAction = u"Reset a Little"_s;
    request.secondConfirmed = [&second] { ++second; };
    present(request)->cancelButton()->click();
    settle();
    present(request)->actionButton()->click();
    settle();
    EXPECT_EQ(second, 0);
    EXPECT_EQ(confirmations, 1);
}

TEST_F(AlertPresenterTest, oneActionHasNoSecondButton)
{
    EXPECT_EQ(present(reset())->secondActionButton(), nullptr);
}

TEST_F(AlertPresenterTest, anOpenQuestionTakesAnotherMessage)
{
    presenter.setMessage(&window, u"Nobody asks."_s);
    AlertDialog* dialog = present(reset());
    presenter.setMessage(&window, u"This will remove 3 folders."_s);
    QStringList texts;
    for (const auto* label : dialog->findChildren<QLabel*>())
        texts.append(label->text());
    EXPECT_TRUE(texts.contains(u"This will remove 3 folders."_s));
    EXPECT_FALSE(texts.contains(u"This will remove any custom folders."_s));
    EXPECT_EQ(dialog->accessibleDescription(), u"This will remove 3 folders."_s);
}

TEST_F(AlertPresenterTest, theSafeButtonHasTheFocusIfTheActionIsDestructive)
{
    AlertDialog* dialog = present(reset());
    EXPECT_EQ(dialog->actionButton()->kind(), Button::Kind::destructive);
    EXPECT_EQ(dialog->focusWidget(), dialog->cancelButton());
    EXPECT_TRUE(dialog->cancelButton()->isDefault());
}

TEST_F(AlertPresenterTest, theActionHasTheFocusOtherwise)
{
    AlertDialog* dialog = present(reset(false));
    EXPECT_EQ(dialog->actionButton()->kind(), Button::Kind::primary);
    EXPECT_EQ(dialog->focusWidget(), dialog->actionButton());
}

TEST_F(AlertPresenterTest, isDestroyedSilentlyWithItsWindow)
{
    auto owner = std::make_unique<QWidget>();
    owner->show();
    presenter.present(owner.get(), watchedReset(), [this] { ++confirmations; });
    owner.reset();
    EXPECT_EQ(confirmations, 0);
    EXPECT_EQ(dismissals, 0);
}

} // namespace keelbright

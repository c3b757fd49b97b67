#include "Keelbright/widgets/Announcement.h"

#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/PanelNote.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/SpokenTexts.h"
#include "tests/support/ThemeGuard.h"

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// A shown window with one part.
class AnnouncementTest : public ::testing::Test
{
protected:
    AnnouncementTest()
        : part(new QLabel(u"Part"_s, &window))
    {
        window.show();
    }

    /// The notifications of the window as a screen reader finds them in its tree.
    [[nodiscard]] QList<QAccessibleInterface*> notices()
    {
        QList<QAccessibleInterface*> found;
        QAccessibleInterface* root = QAccessible::queryAccessibleInterface(&window);
        for (int i = 0; i < root->childCount(); ++i) {
            if (root->child(i)->role() == QAccessible::Notification)
                found.append(root->child(i));
        }
        return found;
    }

    [[nodiscard]] QStringList shownNotices()
    {
        QStringList texts;
        for (const QAccessibleInterface* notice : notices()) {
            if (!notice->state().invisible)
                texts.append(notice->text(QAccessible::Name));
        }
        return texts;
    }

    const ThemeGuard theme;
    QWidget window;
    QLabel* part;
};

} // namespace

TEST_F(AnnouncementTest, appearsAsANotificationOfTheWindow)
{
    const SpokenTexts spoken;
    say(*part, u"Backup Complete"_s);
    EXPECT_EQ(spoken.all(), QStringList{u"Backup Complete"_s});
    EXPECT_EQ(shownNotices(), QStringList{u"Backup Complete"_s});
    EXPECT_EQ(accessibleName(part), u"Part"_s);
}

TEST_F(AnnouncementTest, onlyTheLatestIsShown)
{
    const SpokenTexts spoken;
    const QStringList texts{u"One"_s, u"Two"_s, u"Three"_s, u"Four"_s, u"Five"_s, u"Six"_s, u"Seven"_s};
    for (const QString& text : texts) {
        say(*part, text);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(shownNotices(), QStringList{text});
        EXPECT_LE(notices().size(), 5);
    }
    EXPECT_EQ(spoken.all(), texts);
}

TEST_F(AnnouncementTest, isMadeOnceWhereTwoPartsReportTheSame)
{
    const SpokenTexts spoken;
    say(*part, u"Backup Complete"_s);
    say(window, u"Backup Complete"_s);
    EXPECT_EQ(spoken.all(), QStringList{u"Backup Complete"_s});
    say(*part, u"One"_s);
    say(*part, u"Backup Complete"_s);
    EXPECT_EQ(spoken.all().size(), 3);
}

TEST_F(AnnouncementTest, isNotMadeWhileTheWindowIsHidden)
{
    window.hide();
    const SpokenTexts spoken;
    say(*part, u"Backup Complete"_s);
    EXPECT_EQ(spoken.all(), QStringList());
    EXPECT_EQ(notices().size(), 0);
}

TEST_F(AnnouncementTest, canBeTheNameOfWhatChanged)
{
    const SpokenTexts spoken;
    announce(*part, u"3 items"_s);
    EXPECT_EQ(accessibleName(part), u"3 items"_s);
    EXPECT_EQ(spoken.all(), QStringList{u"3 items"_s});
}

TEST_F(AnnouncementTest, takesNeitherTheFocusNorTheMouse)
{
    say(*part, u"Backup Complete"_s);
    EXPECT_EQ(window.childAt(0, 0), part);
    EXPECT_EQ(part->focusPolicy(), Qt::NoFocus);
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), nullptr);
}

TEST_F(AnnouncementTest, aBannerSaysItsTitleWhenItAppears)
{
    auto* banner = new Banner(Role::red, u"xmark.octagon.fill"_s, u"Errors"_s, &window);
    const SpokenTexts spoken;
    banner->show();
    EXPECT_EQ(spoken.all(), QStringList{u"Errors"_s});
}

TEST_F(AnnouncementTest, aNoteSaysItsTitleWhenItAppears)
{
    auto* note = new PanelNote(u"checkmark.circle.fill"_s, Role::green, u"All clean!"_s, {}, &window);
    const SpokenTexts spoken;
    note->show();
    EXPECT_EQ(spoken.all(), QStringList{u"All clean!"_s});
}

TEST_F(AnnouncementTest, canBeMadeWhileTheWindowComesUp)
{
    window.hide();
    for (int i = 0; i < 8; ++i)
        new Banner(Role::red, u"xmark.octagon.fill"_s, u"Error %1"_s.arg(i), &window);
    const SpokenTexts spoken;
    window.show();
    EXPECT_EQ(spoken.last(), u"Error 7"_s);
    EXPECT_EQ(shownNotices(), QStringList{u"Error 7"_s});
}

} // namespace keelbright::testing

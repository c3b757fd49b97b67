#include "Keelbright/screens/storage/BreadcrumbBar.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QMenu>
#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class BreadcrumbBarTests : public ScreenTestCase
{
protected:
    BreadcrumbBarTests() { bar.resize(600, 30); }

    void setCrumbs(const QStringList& names)
    {
        bar.setCrumbs(names);
        settle();
    }

    [[nodiscard]] static QStringList numbered(int count, const QString& name = u"Folder "_s)
    {
        QStringList names;
        for (int i = 0; i < count; ++i)
            names.append(name + QString::number(i));
        return names;
    }

    /// The captions of the shown buttons but "Back".
    [[nodiscard]] QStringList shownButtons() const
    {
        QStringList captions;
        for (const Button* crumb : bar.findChildren<Button*>()) {
            if (crumb->isVisibleTo(&bar) && crumb->caption() != u"Back"_s)
                captions.append(crumb->caption());
        }
        return captions;
    }

    void expectNothingOverlaps() const
    {
        QList<QRect> taken;
        for (const QWidget* part : bar.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (!part->isVisibleTo(&bar))
                continue;
            EXPECT_TRUE(bar.rect().contains(part->geometry())) << part->geometry().right();
            for (const QRect& other : taken)
                EXPECT_FALSE(other.intersects(part->geometry()));
            taken.append(part->geometry());
        }
    }

    BreadcrumbBar bar;
};

} // namespace

TEST_F(BreadcrumbBarTests, theLastCrumbIsPlainTextAndTheOthersAreButtons)
{
    setCrumbs({u"mira"_s, u"Documents"_s, u"Work"_s});
    EXPECT_EQ(shownButtons(), (QStringList{u"mira"_s, u"Documents"_s}));
    EXPECT_EQ(bar.findChild<ElidedLabel*>()->text(), u"Work"_s);
    EXPECT_EQ(shownSymbols(bar), (QStringList{u"chevron.right"_s, u"chevron.right"_s}));
    expectNothingOverlaps();
}

TEST_F(BreadcrumbBarTests, backNeedsTwoLevels)
{
    setCrumbs({u"mira"_s});
    EXPECT_FALSE(button(bar, u"Back"_s)->isEnabled());
    setCrumbs({u"mira"_s, u"Documents"_s});
    EXPECT_TRUE(button(bar, u"Back"_s)->isEnabled());
    EXPECT_EQ(button(bar, u"Back"_s)->symbol(), u"chevron.left"_s);
    const QSignalSpy back(&bar, &BreadcrumbBar::backPressed);
    button(bar, u"Back"_s)->click();
    EXPECT_EQ(back.count(), 1);
}

TEST_F(BreadcrumbBarTests, aClickOnACrumbReportsItsLevel)
{
    setCrumbs({u"mira"_s, u"Documents"_s, u"Work"_s});
    const QSignalSpy crumbs(&bar, &BreadcrumbBar::crumbPressed);
    button(bar, u"Documents"_s)->click();
    button(bar, u"mira"_s)->click();
    EXPECT_EQ(crumbs.at(0).first().toInt(), 1);
    EXPECT_EQ(crumbs.at(1).first().toInt(), 0);
}

TEST_F(BreadcrumbBarTests, ofManyLevelsTheLastOnesStay)
{
    setCrumbs(numbered(30));
    EXPECT_GT(bar.foldedCount(), 15);
    EXPECT_LT(bar.foldedCount(), 29);
    const QStringList shown = shownButtons();
    EXPECT_EQ(shown.first(), u"Folders above"_s);
    EXPECT_EQ(shown.last(), u"Folder 28"_s);
    EXPECT_EQ(shown.size(), 1 + 29 - bar.foldedCount());
    expectNothingOverlaps();
}

TEST_F(BreadcrumbBarTests, theMenuLeadsToTheFoldedLevels)
{
    setCrumbs(numbered(30, u"A&B "_s));
    const QSignalSpy crumbs(&bar, &BreadcrumbBar::crumbPressed);
    button(bar, u"Folders above"_s)->click();
    auto* menu = bar.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), bar.foldedCount());
    EXPECT_EQ(menu->actions().at(3)->text(), u"A&&B 3"_s);
    menu->actions().at(3)->trigger();
    ASSERT_EQ(crumbs.count(), 1);
    EXPECT_EQ(crumbs.first().first().toInt(), 3);
    menu->close();
}

TEST_F(BreadcrumbBarTests, aWiderWindowShowsMore)
{
    setCrumbs(numbered(12));
    const int folded = bar.foldedCount();
    EXPECT_GT(folded, 0);
    bar.resize(800, 30);
    // A widget gets its resize event when it is shown or grabbed.
    (void)bar.grab();
    EXPECT_LT(bar.foldedCount(), folded);
    bar.resize(2'000, 30);
    (void)bar.grab();
    EXPECT_EQ(bar.foldedCount(), 0);
    expectNothingOverlaps();
}

TEST_F(BreadcrumbBarTests, longNamesAreCut)
{
    const QString name(120, u'W');
    setCrumbs({u"mira"_s, name, name});
    expectNothingOverlaps();
    EXPECT_NE(bar.findChild<ElidedLabel*>()->shownText(), name);
    EXPECT_EQ(bar.findChild<ElidedLabel*>()->toolTip(), name);
    bar.resize(250, 30);
    (void)bar.grab();
    expectNothingOverlaps();
    EXPECT_EQ(bar.foldedCount(), 2);
}

} // namespace keelbright::testing

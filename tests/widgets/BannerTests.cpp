#include "Keelbright/widgets/Banner.h"

#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"

#include <QLabel>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

QStringList textsIn(const QWidget& widget)
{
    QStringList texts;
    for (const auto* label : widget.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

} // namespace

TEST(Banner, showsItsTitleAndItsLines)
{
    Banner banner(Role::orange, u"exclamationmark.triangle.fill"_s, u"Warnings"_s);
    banner.setLines({u"One"_s, u"Two"_s});
    EXPECT_EQ(textsIn(banner), QStringList({u"Warnings"_s, u"One"_s, u"Two"_s}));
    EXPECT_EQ(testing::accessibleName(&banner), u"Warnings"_s);
    EXPECT_EQ(banner.accessibleDescription(), u"One\nTwo"_s);
}

TEST(Banner, itsSymbolIsNamedByWhatItMeans)
{
    const auto nameOfSymbol = [](Role hue) {
        const Banner banner(hue, u"xmark.octagon.fill"_s, u"Title"_s);
        return banner.findChild<SymbolLabel*>()->accessibleName();
    };
    EXPECT_EQ(nameOfSymbol(Role::red), u"Error"_s);
    EXPECT_EQ(nameOfSymbol(Role::orange), u"Warning"_s);
    EXPECT_EQ(nameOfSymbol(Role::accent), u"Note"_s);
}

TEST(Banner, replacesItsLines)
{
    Banner banner(Role::red, u"xmark.octagon.fill"_s, u"Errors"_s);
    banner.setLines({u"One"_s, u"Two"_s});
    banner.setLines({u"Three"_s});
    EXPECT_EQ(textsIn(banner), QStringList({u"Errors"_s, u"Three"_s}));
}

TEST(EmptyStateView, showsTitleAboveMessage)
{
    EmptyStateView view(u"No Report Yet"_s, u"Run a backup to generate a report."_s,
                        u"doc.text.magnifyingglass"_s);
    EXPECT_EQ(textsIn(view), QStringList({u"No Report Yet"_s, u"Run a backup to generate a report."_s}));
    EXPECT_EQ(testing::accessibleName(&view), u"No Report Yet"_s);
    EXPECT_EQ(view.accessibleDescription(), u"Run a backup to generate a report."_s);
}

} // namespace keelbright

#include "Keelbright/widgets/rows/RowPainting.h"

#include "Keelbright/widgets/rows/ListRow.h"
#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Rows painted on a card, 400 by 48.
class RowPaintingTests : public ::testing::Test
{
protected:
    [[nodiscard]] static RowLayout layoutOf(const ListRow& row)
    {
        return layOutRow(row, place, RowMetrics::tablePadding);
    }

    /// A card with nothing on it but what `paint` adds.
    template <typename Paint> [[nodiscard]] static QImage picture(Paint paint)
    {
        QImage image(place.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Theme::instance().color(Role::card));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
        return image;
    }

    [[nodiscard]] static QImage picture(const ListRow& row)
    {
        return picture([&](QPainter& painter) {
            RowPainting::paintRow(painter, row, layoutOf(row), {Role::card, false});
        });
    }

    [[nodiscard]] static QColor colorAt(const ListRow& row, const QPoint& point)
    {
        return picture(row).pixelColor(point);
    }

    static constexpr QRect place{0, 0, 400, 48};
    ThemeGuard theme{ColorScheme::light, true};
};

} // namespace

TEST_F(RowPaintingTests, aRoundMarkShowsAllPartAndNone)
{
    const std::tuple<Qt::CheckState, QString, Role> marks[]{
        {Qt::Checked, u"checkmark.circle.fill"_s, Role::mint},
        {Qt::PartiallyChecked, u"minus.circle.fill"_s, Role::mint},
        {Qt::Unchecked, u"circle"_s, Role::emptyMark},
    };
    for (const auto& [state, symbol, color] : marks) {
        ListRow row;
        row.mark = ListRow::Mark::circle;
        row.markState = state;
        row.symbolColor = Role::mint;
        const QImage expected = picture([&](QPainter& painter) {
            const QRectF round = QRectF(layoutOf(row).mark).adjusted(-1.5, -1.5, 1.5, 1.5);
            Symbol::paint(painter, round, symbol, Theme::instance().color(color));
        });
        EXPECT_EQ(picture(row), expected) << symbol.toStdString();
    }
}

TEST_F(RowPaintingTests, aTagStandsOnAFaintTintOfItsColour)
{
    ListRow row;
    row.title = u"Ink"_s;
    row.tag = u"Rarely Used"_s;
    row.tagColor = Role::red;
    const QRect tag = layoutOf(row).tag;
    ASSERT_FALSE(tag.isEmpty());
    EXPECT_TRUE(isNear(colorAt(row, QPoint(tag.left() + 4, tag.center().y())),
                       Theme::instance().tint(Role::red, 0.12, Role::card)));
}

TEST_F(RowPaintingTests, aTileStandsOnATintOfItsColour)
{
    ListRow row;
    row.picture = ListRow::Picture::tile;
    row.symbol = u"doc.fill"_s;
    row.symbolColor = Role::orange;
    const QRect tile = layoutOf(row).picture;
    EXPECT_TRUE(isNear(colorAt(row, QPoint(tile.left() + 2, tile.center().y())),
                       Theme::instance().tint(Role::orange, tileTint, Role::card)));
}

TEST_F(RowPaintingTests, aBarIsAsWideAsItsShareInItsOwnOpacity)
{
    ListRow row;
    row.title = u"Film"_s;
    row.bar = 0.5;
    row.barColor = Role::red;
    row.barOpacity = 0.75;
    const QRect bar = layoutOf(row).bar;
    EXPECT_EQ(bar.width(), (place.width() - 2 * RowMetrics::tablePadding) / 2);
    QColor red = Theme::instance().color(Role::red);
    red.setAlphaF(0.75F);
    const QColor card = Theme::instance().color(Role::card);
    EXPECT_TRUE(isNear(colorAt(row, bar.center()), composed(card, red)));
    EXPECT_EQ(colorAt(row, QPoint(bar.right() + 2, bar.center().y())), card);
    row.bar = 3;
    EXPECT_EQ(layoutOf(row).bar.width(), place.width() - 2 * RowMetrics::tablePadding);
}

TEST_F(RowPaintingTests, aClearChevronKeepsItsRoomAndDrawsNothing)
{
    ListRow row;
    row.hasChevron = true;
    const QRect chevron = layoutOf(row).chevron;
    ASSERT_FALSE(chevron.isEmpty());
    const QImage bare = picture([](QPainter&) {});
    EXPECT_NE(picture(row).copy(chevron), bare.copy(chevron));
    row.chevronColor = Role::window;
    EXPECT_EQ(layoutOf(row).chevron, chevron);
    EXPECT_EQ(picture(row), bare);
}

} // namespace keelbright::testing

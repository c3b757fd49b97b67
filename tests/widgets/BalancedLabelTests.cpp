#include "Keelbright/widgets/BalancedLabel.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <QImage>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

const QString sentence = u"Click a category on the left to preview which files will be moved."_s;

QFontMetrics bodyMetrics()
{
    return QFontMetrics(Theme::instance().font(FontRole::body));
}

int heightIn(int width, const QString& text)
{
    return bodyMetrics().boundingRect(QRect(0, 0, width, 1000), Qt::TextWordWrap, text).height();
}

/// How much of a picture's rows from `top` to `bottom` is drawn over, from the first column to the last.
int inkWidth(const QImage& picture, int top, int bottom)
{
    int first = picture.width();
    int last = -1;
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == picture.pixel(0, 0))
                continue;
            first = std::min(first, x);
            last = std::max(last, x);
        }
    }
    return std::max(0, last - first + 1);
}

} // namespace

TEST(BalancedLabel, isAsNarrowAsItsNumberOfLinesAllows)
{
    const int line = bodyMetrics().horizontalAdvance(sentence);
    const int width = line - 10; // all but the last word fits into one line
    const int balanced = balancedWidth(bodyMetrics(), sentence, width);
    EXPECT_LT(balanced, line * 2 / 3);
    EXPECT_GE(balanced, line / 2 - 10);
    EXPECT_EQ(heightIn(balanced, sentence), heightIn(width, sentence));
    EXPECT_GT(heightIn(balanced - 1, sentence), heightIn(width, sentence));
}

TEST(BalancedLabel, aTextOfOneLineTakesItsOwnWidth)
{
    const int line = bodyMetrics().horizontalAdvance(sentence);
    const int balanced = balancedWidth(bodyMetrics(), sentence, 2 * line);
    EXPECT_NEAR(balanced, line, 3);
    EXPECT_EQ(heightIn(balanced, sentence), bodyMetrics().height());
}

TEST(BalancedLabel, aWordThatIsWiderThanItsPlaceKeepsThePlace)
{
    EXPECT_EQ(balancedWidth(bodyMetrics(), u"Unabhaengigkeitserklaerung"_s, 40), 40);
    EXPECT_EQ(balancedWidth(bodyMetrics(), QString(), 40), 1);
}

TEST(BalancedLabel, drawsNoWordAloneOnItsLastLine)
{
    BalancedLabel label(sentence, FontRole::body, Role::primaryText);
    const int width = bodyMetrics().horizontalAdvance(sentence) - 10;
    label.resize(width, label.heightForWidth(width));
    const QImage picture = label.grab().toImage();
    const int middle = picture.height() / 2;
    const int first = inkWidth(picture, 0, middle);
    const int second = inkWidth(picture, middle, picture.height());
    EXPECT_GT(first, width / 3);
    EXPECT_GT(second, width / 3);
}

} // namespace keelbright

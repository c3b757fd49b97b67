#include "KeelbrightCore/apps/AppLeftover.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(AppLeftover, kindsComeInTheirOrderWithRawValueAndIcon)
{
    QStringList lines;
    for (const AppLeftover::Kind kind : AppLeftover::allKinds())
        lines.append(AppLeftover::rawValue(kind) + u": "_s + AppLeftover::icon(kind));
    EXPECT_EQ(lines, (QStringList{u"Preferences: slider.horizontal.3"_s, u"Cache: arrow.clockwise.circle"_s,
                                  u"App Support: folder.fill"_s, u"Container: shippingbox.fill"_s,
                                  u"Saved State: clock.fill"_s, u"Launch Agent: gearshape.2.fill"_s,
                                  u"Other: doc.fill"_s}));
}

TEST(AppLeftover, eachRecordHasAnIdOfItsOwn)
{
    const AppLeftover first{.url = {}, .sizeBytes = 1, .kind = AppLeftover::Kind::cache};
    const AppLeftover second{.url = {}, .sizeBytes = 1, .kind = AppLeftover::Kind::cache};
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
}

TEST(AppLeftover, theSizeIsFormattedForPeople)
{
    const TestMac mac;
    const auto formatted = [](qint64 bytes) {
        return AppLeftover{.url = {}, .sizeBytes = bytes, .kind = AppLeftover::Kind::other}.formattedSize();
    };
    EXPECT_EQ(formatted(0), u"Zero KB"_s);
    EXPECT_EQ(formatted(2'500'000), u"2.5 MB"_s);
}

} // namespace keelbright::testing

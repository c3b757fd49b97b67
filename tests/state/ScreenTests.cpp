#include "Keelbright/state/Screen.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(Screen, allComeInTheirOrderWithTitleAndIcon)
{
    QStringList lines;
    for (const Screen screen : allScreens())
        lines.append(rawValue(screen) + u": "_s + icon(screen));
    EXPECT_EQ(lines, (QStringList{
                         u"Dashboard: square.grid.2x2.fill"_s,
                         u"Protected Items: shield.fill"_s,
                         u"Preflight Check: checklist"_s,
                         u"Backup Progress: arrow.clockwise.circle"_s,
                         u"App Manager: app.badge.checkmark"_s,
                         u"Junk Cleaner: trash.fill"_s,
                         u"Storage Browser: chart.bar.doc.horizontal"_s,
                         u"Smart Organizer: folder.badge.gearshape"_s,
                         u"Scan Results: magnifyingglass.circle.fill"_s,
                         u"Activity Log: clock.arrow.circlepath"_s,
                         u"Backup Report: doc.text.magnifyingglass"_s,
                         u"Restore Browser: externaldrive.badge.timemachine"_s,
                         u"New Mac Recovery: sparkles"_s,
                         u"Settings: gear"_s,
                     }));
}

TEST(Screen, comesBackFromItsTitleOnly)
{
    for (const Screen screen : allScreens())
        EXPECT_EQ(screenFromRawValue(rawValue(screen)), screen);
    for (const QString& text : {QString(), u"dashboard"_s, u"Junk Cleaner "_s})
        EXPECT_FALSE(screenFromRawValue(text).has_value()) << text.toStdString();
}

} // namespace keelbright::testing

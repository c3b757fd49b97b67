#pragma once

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/support/SampleRows.h"
#include "tests/support/ThemeGuard.h"

#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

/// The actions that were asked for, with their rows.
using Presses = QList<std::pair<int, RowActionId>>;

class RowListViewTest : public ::testing::Test
{
protected:
    RowListViewTest()
    {
        view.setRowModel(&model);
        view.resize(600, 400);
    }

    void show()
    {
        view.show();
        view.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    /// Where a part of the row is in the viewport, as the delegate lays it out.
    [[nodiscard]] RowLayout layoutOf(int row) const
    {
        const QRect rect = view.visualRect(model.index(row)).adjusted(0, 0, 0, -1);
        return layOutRow(model.rowAt(row), rect, RowMetrics::tablePadding);
    }

    void click(const QPoint& place) { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place); }

    void collect(Presses& presses)
    {
        QObject::connect(&view, &RowListView::actionPressed, &view,
                         [&presses](int row, RowActionId action) { presses.append({row, action}); });
    }

    [[nodiscard]] QList<Button*> shownButtons() const
    {
        QList<Button*> buttons;
        for (auto* button : view.findChildren<Button*>()) {
            if (button->isVisible())
                buttons.append(button);
        }
        return buttons;
    }

    ThemeGuard theme{ColorScheme::light, true};
    SampleRows model{{u"Letters"_s, u"Music"_s, u"Pictures"_s}};
    RowListView view{RowListView::Look::table, u"Junk items"_s};
};

} // namespace keelbright::testing

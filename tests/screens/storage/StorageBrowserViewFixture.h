#pragma once

#include "Keelbright/screens/StorageBrowserView.h"
#include "Keelbright/widgets/SegmentedControl.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/screens/storage/StorageBrowserFixture.h"

namespace keelbright::testing {

/// The storage browser on screen, with the home of `StorageBrowserFixture`.
class StorageBrowserViewFixture : public StorageBrowserFixture
{
protected:
    /// Shows the screen with this folder on display.
    void browse(StorageBrowserView& view, const FileURL& folder)
    {
        show(view);
        navigate(view.model(), folder);
        turnFrame();
    }

    static void drillIn(StorageBrowserView& view, const QString& name)
    {
        StorageBrowserFixture::drillIn(view.model(), name);
        turnFrame();
    }

    static void choose(StorageBrowserView& view, StorageBrowserModel::ViewMode mode)
    {
        const auto index = StorageBrowserModel::allViewModes().indexOf(mode);
        Q_EMIT view.findChild<SegmentedControl*>()->chosen(static_cast<int>(index));
        waitForLargest(view.model());
        turnFrame();
    }

    [[nodiscard]] static RowListView* list(const StorageBrowserView& view)
    {
        for (auto* candidate : view.findChildren<RowListView*>()) {
            if (candidate->accessibleName() == QStringLiteral("Entries"))
                return candidate;
        }
        return nullptr;
    }

    /// "title number" of each row of the list.
    [[nodiscard]] static QStringList rows(const RowListView* list)
    {
        QStringList lines;
        for (int row = 0; row < list->rowModel()->rowCount(); ++row) {
            const ListRow shown = list->rowModel()->rowAt(row);
            lines.append(shown.title + u' ' + shown.value);
        }
        return lines;
    }

    [[nodiscard]] static QStringList shownButtons(const StorageBrowserView& view)
    {
        QStringList captions;
        for (const Button* button : view.findChildren<Button*>()) {
            if (button->isVisibleTo(&view))
                captions.append(button->caption());
        }
        return captions;
    }

    static int rowOf(const RowListView* list, const QString& title)
    {
        for (int row = 0; row < list->rowModel()->rowCount(); ++row) {
            if (list->rowModel()->rowAt(row).title == title)
                return row;
        }
        return -1;
    }
};

} // namespace keelbright::testing

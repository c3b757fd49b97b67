#pragma once

#include "Keelbright/screens/DashboardView.h"
#include "Keelbright/screens/dashboard/InsightCard.h"
#include "Keelbright/widgets/BackupCards.h"
#include "tests/screens/shared/ScreenTestCase.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

class DashboardViewTests : public ScreenTestCase
{
protected:
    /// Sets the clock of the machine, which is in Berlin in winter.
    void setLocalTime(int hour, int minute)
    {
        mac.setNow(QDateTime(QDate(2026, 3, 2), QTime(hour, minute)).toUTC());
    }

    /// The texts of the first part of this class; none if it is hidden.
    template <typename Part> [[nodiscard]] static QStringList textsOf(const DashboardView& view)
    {
        const Part* part = view.findChild<Part*>();
        return part->isVisibleTo(&view) ? textsIn(*part) : QStringList();
    }

    /// The top left corner of the first part of this class, relative to the page.
    template <typename Part> [[nodiscard]] static QPoint placeOf(const DashboardView& view)
    {
        return view.findChild<Part*>()->mapTo(&view, QPoint());
    }

    [[nodiscard]] static InsightCard* card(const DashboardView& view, const QString& title)
    {
        for (auto* candidate : view.findChildren<InsightCard*>()) {
            if (candidate->insight().title == title)
                return candidate;
        }
        return nullptr;
    }
};

} // namespace keelbright::testing

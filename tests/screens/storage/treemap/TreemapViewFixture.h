#pragma once

#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "tests/screens/storage/treemap/TreemapFixture.h"
#include "tests/support/Accessible.h"
#include "tests/support/ThemeGuard.h"

#include <QApplication>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

/// A map that can be taken to a screen with other pixels.
class MapOnAnyScreen : public TreemapView
{
public:
    int ratio = 1;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric asked) const override
    {
        if (asked == PdmDevicePixelRatio)
            return ratio;
        if (asked == PdmDevicePixelRatioScaled)
            return static_cast<int>(ratio * devicePixelRatioFScale());
        return TreemapView::metric(asked);
    }
};

/// A map of four cells on screen: "0" and "2" are folders, "1" and "3" are files.
class TreemapViewTests : public ::testing::Test
{
protected:
    TreemapViewTests()
    {
        window.resize(800, 500);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        setSizes({4'000'000, 3'000'000, 2'000'000, 1'000'000});
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        view.clearFocus();
        paint();
    }

    ~TreemapViewTests() override { view.setParent(nullptr); }

    TreemapViewTests(const TreemapViewTests&) = delete;
    TreemapViewTests& operator=(const TreemapViewTests&) = delete;

    void setSizes(const QList<qint64>& sizes)
    {
        const QList<FolderSizeNode> nodes = treemapNodes(sizes);
        view.setNodes(nodes, bytesOf(nodes));
    }

    void paint() { (void)view.grab(); }

    void resizeWindow(const QSize& size)
    {
        window.resize(size);
        constexpr int patience = 60'000;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return window.rect().contains(view.geometry()) && view.width() > size.width() / 2; },
            patience));
    }

    [[nodiscard]] QPoint center(int cell) { return view.cells().at(cell).rect.center().toPoint(); }

    void hover(const QPoint& position)
    {
        QMouseEvent move(QEvent::MouseMove, position, view.mapToGlobal(position), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
    }

    [[nodiscard]] QString toolTipAt(const QPoint& position)
    {
        QHelpEvent help(QEvent::ToolTip, position, view.mapToGlobal(position));
        QApplication::sendEvent(&view, &help);
        return QToolTip::text();
    }

    /// The names of the entries that were drilled into.
    [[nodiscard]] static QStringList namesIn(const QSignalSpy& spy)
    {
        QStringList names;
        for (const QList<QVariant>& arguments : spy)
            names.append(arguments.first().value<FolderSizeNode>().name);
        return names;
    }

    [[nodiscard]] QAccessibleInterface* accessible() { return QAccessible::queryAccessibleInterface(&view); }

    ThemeGuard theme;
    QWidget window;
    TreemapView view;
    QSignalSpy drills{&view, &TreemapView::drilledIn};
    QSignalSpy actions{&view, &TreemapView::actionPressed};
};

} // namespace keelbright::testing

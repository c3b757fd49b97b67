#include "Keelbright/screens/shell/WindowPlace.h"

#include "Keelbright/screens/shell/WindowPlaceFile.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QGuiApplication>
#include <QJsonDocument>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

const QRect mainScreen{0, 27, 1'920, 1'053};
const QRect rightScreen{1'920, 0, 1'280, 1'024};
const QList<QRect> both{mainScreen, rightScreen};

Decoded<WindowPlace> read(const QByteArray& text)
{
    const auto json = decodeJsonObject(text);
    return json ? WindowPlace::fromJson(*json) : std::unexpected(json.error());
}

class WindowPlaceFileTest : public ::testing::Test
{
protected:
    [[nodiscard]] WindowPlaceFile file() const { return WindowPlaceFile(mac.makeFolder(folder)); }

    const QByteArray folder = "Users/mira/.local/share/Keelbright";
    testing::TestMac mac;
};

} // namespace

TEST(BroughtBack, leavesAPlaceThatCanBeSeen)
{
    for (const QRect& place : {QRect(100, 80, 1'180, 760), QRect(0, 27, 1'920, 1'053),
                               QRect(1'950, 0, 860, 620), QRect(1'500, 100, 1'180, 760)})
        EXPECT_EQ(broughtBack(place, both), place);
}

TEST(BroughtBack, bringsBackWhatIsOnNoScreenAnyMore)
{
    EXPECT_EQ(broughtBack({2'000, 100, 1'180, 760}, {mainScreen}), QRect(740, 100, 1'180, 760));
    EXPECT_EQ(broughtBack({-1'500, 100, 1'180, 760}, {mainScreen}), QRect(0, 100, 1'180, 760));
    EXPECT_EQ(broughtBack({100, 5'000, 1'180, 760}, {mainScreen}), QRect(100, 320, 1'180, 760));
    EXPECT_EQ(broughtBack({100, -900, 1'180, 760}, {mainScreen}), QRect(100, 63, 1'180, 760))
        << "with its title bar";
}

TEST(BroughtBack, choosesTheScreenThatHoldsTheLargestPart)
{
    EXPECT_EQ(broughtBack({1'600, 700, 1'180, 760}, both), QRect(1'920, 264, 1'180, 760));
}

TEST(BroughtBack, makesAWindowSmallerThanTheScreen)
{
    EXPECT_EQ(broughtBack({10, 40, 3'000, 2'000}, {mainScreen}), QRect(0, 63, 1'920, 1'017));
}

TEST(WindowPlaceTests, isReadAsItWasWritten)
{
    for (const WindowPlace& place :
         {WindowPlace{QPoint(-40, 27), {1'180, 760}, false}, WindowPlace{std::nullopt, {860, 620}, true}}) {
        const auto again = read(QJsonDocument(place.toJson()).toJson());
        ASSERT_TRUE(again.has_value());
        EXPECT_EQ(*again, place);
    }
}

TEST(WindowPlaceTests, numbersThatMakeNoSenseAreRefused)
{
    for (const char* text : {R"({"width": 0, "height": 620, "isMaximized": false})",
                             R"({"width": 860, "height": -1, "isMaximized": false})",
                             R"({"width": 860, "height": 99999999999, "isMaximized": false})",
                             R"({"width": 860, "height": 620, "isMaximized": false, "x": 70000, "y": 0})",
                             R"({"width": 860, "height": 620, "isMaximized": false, "x": 5})",
                             R"({"width": 860, "height": 620})", R"({"width": "wide"})", "[]", ""})
        EXPECT_FALSE(read(text).has_value()) << text;
}

TEST(WindowPlaceTests, aWindowGoesBackToItsPlace)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect there(screen.left() + 30, screen.top() + 50, 400, 300);
    QWidget before;
    before.setGeometry(there);
    before.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&before));
    const WindowPlace place = WindowPlace::of(before);
    EXPECT_EQ(place, (WindowPlace{there.topLeft(), there.size(), false}));
    QWidget after;
    place.applyTo(after);
    EXPECT_EQ(after.geometry(), there);
    EXPECT_FALSE(after.isMaximized());
}

TEST(WindowPlaceTests, aMaximizedWindowKnowsItsSizeOfBefore)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect there(screen.left() + 30, screen.top() + 50, 400, 300);
    QWidget before;
    before.setGeometry(there);
    before.showMaximized();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&before));
    const WindowPlace place = WindowPlace::of(before);
    EXPECT_EQ(place, (WindowPlace{there.topLeft(), there.size(), true}));
    QWidget after;
    place.applyTo(after);
    EXPECT_TRUE(after.isMaximized());
    EXPECT_EQ(after.normalGeometry(), there);
}

TEST(WindowPlaceTests, aWindowIsNeverSmallerThanItsMinimum)
{
    QWidget window;
    window.setMinimumSize(500, 400);
    WindowPlace{std::nullopt, {300, 200}, false}.applyTo(window);
    EXPECT_EQ(window.size(), QSize(500, 400));
}

TEST(WindowPlaceTests, withoutAPositionOnlyTheSizeIsTaken)
{
    QWidget window;
    window.move(70, 60);
    WindowPlace{std::nullopt, {640, 480}, false}.applyTo(window);
    EXPECT_EQ(window.pos(), QPoint(70, 60));
    EXPECT_EQ(window.size(), QSize(640, 480));
}

TEST_F(WindowPlaceFileTest, keepsAPlace)
{
    EXPECT_EQ(file().load(), std::nullopt);
    const WindowPlace place{QPoint(12, 34), {900, 700}, false};
    file().save(place);
    EXPECT_EQ(file().load(), place);
    const WindowPlace next{std::nullopt, {900, 640}, true};
    file().save(next);
    EXPECT_EQ(file().load(), next);
}

TEST_F(WindowPlaceFileTest, passesOverAFileThatIsOfNoUse)
{
    mac.writeFile(folder + "/window.json", "{\"width\": 3");
    EXPECT_EQ(file().load(), std::nullopt);
    mac.writeFile(folder + "/window.json", QByteArray(5'000, ' ') + "{}");
    EXPECT_EQ(file().load(), std::nullopt);
    const WindowPlace place{QPoint(12, 34), {900, 700}, false};
    file().save(place);
    EXPECT_EQ(file().load(), place);
}

} // namespace keelbright

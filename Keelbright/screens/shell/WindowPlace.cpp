#include "Keelbright/screens/shell/WindowPlace.h"

#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int titleBarHeight = 36;       ///< room for the one that the desktop adds above
constexpr qint64 largestNumber = 65'535; ///< far more than any desktop is wide

/// A Wayland compositor places windows itself: what it reports of a place is nothing but zeros.
bool hasPositions()
{
    return !QGuiApplication::platformName().startsWith("wayland"_L1);
}

QList<QRect> coverableScreens()
{
    QList<QRect> screens;
    for (const QScreen* screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    return screens;
}

Decoded<int> smallNumber(const JsonDecoder& json, const QString& key)
{
    const auto number = json.integer(key);
    if (!number)
        return std::unexpected(number.error());
    if (*number < -largestNumber || *number > largestNumber)
        return std::unexpected(json.error(key, u"is out of range"_s));
    return static_cast<int>(*number);
}

qint64 area(const QRect& rect)
{
    return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height();
}

} // namespace

QRect broughtBack(const QRect& window, const QList<QRect>& screens)
{
    QRegion missing(window);
    for (const QRect& screen : screens)
        missing -= screen;
    if (missing.isEmpty())
        return window;
    const QRect screen =
        *std::ranges::max_element(screens, {}, [&window](const QRect& each) { return area(each & window); });
    const QRect room = screen.adjusted(0, std::min(titleBarHeight, screen.height() / 2), 0, 0);
    QRect place(window.topLeft(), window.size().boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
    return place;
}

WindowPlace WindowPlace::of(const QWidget& window)
{
    const QRect normal = window.normalGeometry();
    return {.position = hasPositions() ? std::optional(normal.topLeft()) : std::nullopt,
            .size = normal.size(),
            .isMaximized = window.isMaximized()};
}

void WindowPlace::applyTo(QWidget& window) const
{
    const QList<QRect> screens = coverableScreens();
    if (screens.isEmpty())
        return;
    const QSize wanted = size.expandedTo(window.minimumSize());
    if (position && hasPositions())
        window.setGeometry(broughtBack(QRect(*position, wanted), screens));
    else
        window.resize(wanted.boundedTo(screens.first().size()));
    if (isMaximized)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

QJsonObject WindowPlace::toJson() const
{
    QJsonObject json{
        {u"width"_s, size.width()}, {u"height"_s, size.height()}, {u"isMaximized"_s, isMaximized}};
    if (position) {
        json.insert(u"x"_s, position->x());
        json.insert(u"y"_s, position->y());
    }
    return json;
}

Decoded<WindowPlace> WindowPlace::fromJson(const JsonDecoder& json)
{
    const auto width = smallNumber(json, u"width"_s);
    const auto height = smallNumber(json, u"height"_s);
    const auto isMaximized = json.boolean(u"isMaximized"_s);
    if (const auto error = firstError(width, height, isMaximized))
        return std::unexpected(*error);
    if (*width <= 0 || *height <= 0)
        return std::unexpected(json.error(*width <= 0 ? u"width"_s : u"height"_s, u"is out of range"_s));
    WindowPlace place{.position = {}, .size = {*width, *height}, .isMaximized = *isMaximized};
    if (!json.has(u"x"_s))
        return place;
    const auto x = smallNumber(json, u"x"_s);
    const auto y = smallNumber(json, u"y"_s);
    if (const auto error = firstError(x, y))
        return std::unexpected(*error);
    place.position = QPoint(*x, *y);
    return place;
}

} // namespace keelbright

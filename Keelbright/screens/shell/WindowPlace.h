#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

class QWidget;

namespace keelbright {

/// Where a window stands, in device-independent pixels and without its frame.
struct WindowPlace
{
    std::optional<QPoint> position; ///< absent where the desktop reports none and takes none
    QSize size;                     ///< unless it is maximized
    bool isMaximized = false;

    /// The place of the window as it is; if it fills the screen, the place to which it goes back.
    [[nodiscard]] static WindowPlace of(const QWidget& window);

    /// Puts the window there, brought back to the screens that there are now. To be called before it is
    /// shown.
    void applyTo(QWidget& window) const;

    [[nodiscard]] QJsonObject toJson() const;
    /// An error also where a number makes no sense.
    [[nodiscard]] static Decoded<WindowPlace> fromJson(const JsonDecoder& json);

    friend bool operator==(const WindowPlace&, const WindowPlace&) = default;
};

/// The nearest place that can be seen: unchanged where the screens hold it, else moved and, if need be, made
/// smaller until one of them does. `screens` are the parts of the screens that windows may cover, the main
/// one first; there is one at least.
[[nodiscard]] QRect broughtBack(const QRect& window, const QList<QRect>& screens);

} // namespace keelbright

#pragma once

#include <QString>

namespace keelbright {

/// A text from outside (a file's name, an error line) made safe to show on one line: control
/// characters and line breaks become visible signs, and marks that turn the reading direction,
/// which could make a program look like a picture, are dropped.
[[nodiscard]] QString displayText(const QString& text);
/// The same for a tool tip, which would otherwise read a name with angle brackets as markup.
[[nodiscard]] QString toolTipText(const QString& text);

} // namespace keelbright

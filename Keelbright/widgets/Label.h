#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QLabel>

namespace keelbright {

/// A text in a font and a colour by role. Always plain text, because a file's name is no markup.
class Label : public QLabel
{
    Q_OBJECT

public:
    Label(const QString& text, FontRole font, Role color, QWidget* parent = nullptr);

    void setFontRole(FontRole font);
    void setColorRole(Role color);

    [[nodiscard]] Role colorRole() const { return m_color; }

    /// Limits `width` to the maximum width, because layouts ask with the width of the whole line.
    [[nodiscard]] int heightForWidth(int width) const override;

private:
    void applyColor();

    Role m_color;
};

/// A label that wraps into as many lines as it needs.
[[nodiscard]] Label* makeWrappingLabel(const QString& text, FontRole font, Role color,
                                       QWidget* parent = nullptr);

} // namespace keelbright

#include "Keelbright/widgets/Label.h"

#include "Keelbright/widgets/theme/Theme.h"

#include <algorithm>

namespace keelbright {

Label::Label(const QString& text, FontRole font, Role color, QWidget* parent)
    : QLabel(text, parent)
    , m_color(color)
{
    setTextFormat(Qt::PlainText);
    setFontRole(font);
    applyColor();
    connect(&Theme::instance(), &Theme::changed, this, &Label::applyColor);
}

void Label::setFontRole(FontRole font)
{
    setFont(Theme::instance().font(font));
}

void Label::setColorRole(Role color)
{
    if (color == m_color)
        return;
    m_color = color;
    applyColor();
}

int Label::heightForWidth(int width) const
{
    return QLabel::heightForWidth(std::min(width, maximumWidth()));
}

void Label::applyColor()
{
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, Theme::instance().color(m_color));
    setPalette(colors);
}

Label* makeWrappingLabel(const QString& text, FontRole font, Role color, QWidget* parent)
{
    auto* label = new Label(text, font, color, parent);
    label->setWordWrap(true);
    return label;
}

} // namespace keelbright

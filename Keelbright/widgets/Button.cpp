#include "Keelbright/widgets/Button.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int gap = 7;
constexpr int arrowSize = 14; ///< of a button that opens a menu

Role startingHue(Button::Kind kind)
{
    switch (kind) {
    case Button::Kind::primary:
        return Role::accent;
    case Button::Kind::destructive:
        return Role::red;
    case Button::Kind::link:
        return Role::accentText;
    case Button::Kind::icon:
    case Button::Kind::plainIcon:
        return Role::mutedText;
    case Button::Kind::bordered:
        return Role::primaryText;
    }
    return Role::primaryText;
}

} // namespace

Button::Button(Kind kind, const QString& text, QString symbolKey, QWidget* parent)
    : QPushButton(parent)
    , m_kind(kind)
    , m_symbol(std::move(symbolKey))
    , m_hue(startingHue(kind))
{
    setCaption(text);
    applyFont();
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (kind == Kind::link)
        setCursor(Qt::PointingHandCursor);
}

void Button::setKind(Kind kind)
{
    m_kind = kind;
    m_hue = startingHue(kind);
    update();
}

void Button::setCaption(const QString& text)
{
    m_caption = displayText(text);
    setAccessibleName(m_caption);
    if (isSymbolAlone())
        setToolTip(toolTipText(m_caption));
    else // Captions have no mnemonics, so an ampersand is a plain character.
        setText(QString(m_caption).replace(u'&', "&&"_L1));
    updateGeometry();
    update();
}

void Button::setSymbol(const QString& key)
{
    m_symbol = key;
    updateGeometry();
    update();
}

void Button::setHue(Role hue, double symbolOpacity)
{
    m_hue = hue;
    m_symbolOpacity = symbolOpacity;
    update();
}

void Button::setCompact(bool isCompact)
{
    m_isCompact = isCompact;
    applyFont();
    updateGeometry();
}

void Button::applyFont()
{
    setFont(Theme::instance().font(m_isCompact ? FontRole::secondary : FontRole::bodyStrong));
}

int Button::symbolSize() const
{
    return m_isCompact ? 14 : 16;
}

int Button::padding() const
{
    if (m_kind == Kind::link)
        return linkPadding;
    return m_isCompact ? 10 : 14;
}

int Button::pictureWidth() const
{
    return m_symbol.isEmpty() ? 0 : symbolSize() + gap;
}

void Button::setShowsArrow(bool shows)
{
    m_showsArrow = shows;
    updateGeometry();
}

int Button::arrowWidth() const
{
    return !m_showsArrow || isSymbolAlone() ? 0 : arrowSize + gap;
}

QString Button::shownCaption() const
{
    return fontMetrics().elidedText(m_caption, Qt::ElideRight,
                                    width() - 2 * padding() - pictureWidth() - arrowWidth() + 1);
}

QSize Button::sizeHint() const
{
    const int minimumHeight = m_isCompact ? Metrics::compactButtonHeight : Metrics::buttonHeight;
    const int height = std::max(minimumHeight, fontMetrics().height() + 8);
    if (isSymbolAlone())
        return {height, height};
    return {fontMetrics().horizontalAdvance(m_caption) + pictureWidth() + arrowWidth() + 2 * padding(),
            height};
}

QColor Button::textColor() const
{
    const Theme& theme = Theme::instance();
    if (!isEnabled())
        return theme.color(Role::emptyMark);
    if (isFilled())
        return theme.color(onFillRole(fillRole(m_hue)));
    if (m_kind == Kind::link)
        return theme.color(Role::accentText);
    return theme.color(m_isCompact ? Role::accentText : Role::primaryText);
}

void Button::paintGround(QPainter& painter) const
{
    const Theme& theme = Theme::instance();
    const QRectF ground = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool isHovered = isEnabled() && underMouse();
    painter.setPen(Qt::NoPen);
    if (isFilled()) {
        painter.setBrush(isEnabled() ? theme.color(fillRole(m_hue)) : theme.color(Role::track));
        painter.drawRoundedRect(rect(), Metrics::buttonRadius, Metrics::buttonRadius);
    } else if (m_kind == Kind::bordered || m_kind == Kind::icon) {
        painter.setBrush(theme.color(Role::card));
        painter.setPen(theme.color(Role::controlLine));
        painter.drawRoundedRect(ground, Metrics::buttonRadius, Metrics::buttonRadius);
        painter.setPen(Qt::NoPen);
    }
    if (m_kind == Kind::link || !(isHovered || isDown()))
        return;
    // On a fill the shade is dark in both schemes, so that the text keeps its contrast.
    painter.setBrush(isFilled() ? QColor(0, 0, 0, isDown() ? 50 : 22)
                                : theme.color(isDown() ? Role::pressed : Role::hover));
    painter.drawRoundedRect(ground, Metrics::buttonRadius, Metrics::buttonRadius);
}

void Button::paintContent(QPainter& painter) const
{
    const Theme& theme = Theme::instance();
    const QColor text = textColor();
    const bool isPlain = isFilled() || m_kind == Kind::link || !isEnabled();
    QColor picture = text;
    if (!isPlain) {
        picture = theme.color(m_hue);
        picture.setAlphaF(static_cast<float>(m_symbolOpacity));
    }
    if (isSymbolAlone()) {
        const QRectF square(0, 0, symbolSize(), symbolSize());
        Symbol::paint(painter, square.translated(QRectF(rect()).center() - square.center()), m_symbol,
                      picture);
        return;
    }
    const QString shown = shownCaption();
    const int textWidth = fontMetrics().horizontalAdvance(shown);
    int x = (width() - textWidth - pictureWidth() - arrowWidth()) / 2;
    if (pictureWidth() > 0) {
        Symbol::paint(painter, QRectF(x, (height() - symbolSize()) / 2.0, symbolSize(), symbolSize()),
                      m_symbol, picture);
        x += pictureWidth();
    }
    QFont font = this->font();
    font.setUnderline(m_kind == Kind::link && isEnabled() && underMouse());
    painter.setFont(font);
    painter.setPen(text);
    painter.drawText(QRect(x, 0, textWidth + 2, height()),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    if (arrowWidth() > 0)
        Symbol::paint(painter,
                      QRectF(x + textWidth + gap, (height() - arrowSize) / 2.0 + 0.5, arrowSize, arrowSize),
                      u"chevron.down"_s, isPlain ? text : theme.color(Role::mutedText));
}

bool Button::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && !isSymbolAlone() && shownCaption() != m_caption) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipText(m_caption), this);
        return true;
    }
    return QPushButton::event(event);
}

void Button::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    paintContent(painter);
    if (hasFocus() && m_focusRing.isVisible())
        FocusRing::paint(painter, rect(), Metrics::buttonRadius, isFilled());
}

void Button::focusInEvent(QFocusEvent* event)
{
    m_focusRing.focusIn(*event);
    QPushButton::focusInEvent(event);
    update();
}

void Button::focusOutEvent(QFocusEvent* event)
{
    m_focusRing.focusOut();
    QPushButton::focusOutEvent(event);
    update();
}

void Button::keyPressEvent(QKeyEvent* event)
{
    m_focusRing.keyPressed();
    // Enter presses a focused button everywhere, not only in a dialog.
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
    update();
}

} // namespace keelbright

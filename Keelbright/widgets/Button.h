#pragma once

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QPushButton>

namespace keelbright {

/// A button with a text, a symbol or both. Enter and Space press it while it has the focus.
class Button : public QPushButton
{
    Q_OBJECT

public:
    enum class Kind {
        primary,     ///< filled; at most one on a screen
        destructive, ///< filled in red, for removing something
        bordered,    ///< a frame, no fill
        link,        ///< text in the accent colour, no frame
        icon,        ///< a symbol alone in a frame
        plainIcon,   ///< a symbol alone, no frame until the pointer is on it
    };

    /// Between the text of a link and its sides.
    static constexpr int linkPadding = 3;

    /// For the two kinds with a symbol alone `text` is the tool tip and the accessible name.
    Button(Kind kind, const QString& text, QString symbolKey = {}, QWidget* parent = nullptr);

    [[nodiscard]] Kind kind() const { return m_kind; }

    void setKind(Kind kind);
    /// The text, or for a symbol alone the tool tip and the accessible name. A text that does not fit
    /// is cut at the end and shown whole in a tool tip; give a button that shows a file's name a
    /// maximum width.
    void setCaption(const QString& text);

    [[nodiscard]] QString caption() const { return m_caption; }

    void setSymbol(const QString& key);

    [[nodiscard]] QString symbol() const { return m_symbol; }

    /// The hue of a primary button (accent by default), or of the symbol of any other button, which
    /// is drawn with `symbolOpacity` from 0 to 1.
    void setHue(Role hue, double symbolOpacity = 1);
    /// 24 high instead of 30, for a button within a row.
    void setCompact(bool isCompact);

    /// Shows a small arrow after the text, as a sign that a menu opens.
    void setShowsArrow(bool shows);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool isFilled() const { return m_kind == Kind::primary || m_kind == Kind::destructive; }

    [[nodiscard]] bool isSymbolAlone() const { return m_kind == Kind::icon || m_kind == Kind::plainIcon; }

    [[nodiscard]] int symbolSize() const;
    [[nodiscard]] int padding() const;
    [[nodiscard]] int pictureWidth() const;
    [[nodiscard]] int arrowWidth() const;
    [[nodiscard]] QString shownCaption() const;
    [[nodiscard]] QColor textColor() const;
    void applyFont();
    void paintGround(QPainter& painter) const;
    void paintContent(QPainter& painter) const;

    Kind m_kind;
    QString m_caption;
    QString m_symbol;
    Role m_hue;
    double m_symbolOpacity = 1;
    bool m_isCompact = false;
    bool m_showsArrow = false;
    FocusRing m_focusRing;
};

} // namespace keelbright

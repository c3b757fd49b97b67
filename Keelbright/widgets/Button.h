#pragma once

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QPushButton>

namespace keelbright {

/// Something to press. Enter and Space press it while it has the focus.
class Button : public QPushButton
{
    Q_OBJECT

public:
    enum class Kind {
        primary,     ///< filled; one a screen
        destructive, ///< filled in red, takes something away
        bordered,    ///< the plain one
        link,        ///< words in the accent colour, no frame
        icon,        ///< a symbol alone in a frame
        plainIcon,   ///< a symbol alone, no frame until the pointer is on it
    };

    /// For the two kinds with a symbol alone `text` is the tool tip and the accessible name.
    Button(Kind kind, const QString& text, QString symbolKey = {}, QWidget* parent = nullptr);

    [[nodiscard]] Kind kind() const { return m_kind; }

    void setKind(Kind kind);
    /// The words, or for a symbol alone the tool tip and the name. Words that do not fit are cut
    /// at the end, with the whole in a tool tip; give a button with a name in it a maximum width.
    void setCaption(const QString& text);

    [[nodiscard]] QString caption() const { return m_caption; }

    void setSymbol(const QString& key);

    [[nodiscard]] QString symbol() const { return m_symbol; }

    /// The hue of a primary button (accent by default), or that of the symbol of any other, which is
    /// drawn at this opacity, 0 to 1.
    void setHue(Role hue, double symbolOpacity = 1);
    /// 24 high instead of 30, for a button within a row.
    void setCompact(bool isCompact);

    /// A small arrow behind the words says that a menu opens.
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
    [[nodiscard]] QColor wordColor() const;
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

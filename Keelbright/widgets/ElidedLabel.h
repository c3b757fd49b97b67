#pragma once

#include "Keelbright/widgets/Label.h"

namespace keelbright {

/// One line that gives way: a text that does not fit is cut (names at the end, paths in the
/// middle), and the tool tip then holds the whole. A screen reader always gets the whole.
class ElidedLabel : public Label
{
    Q_OBJECT

public:
    ElidedLabel(const QString& text, FontRole font, Role color, Qt::TextElideMode mode = Qt::ElideRight,
                QWidget* parent = nullptr);

    /// Takes a text from outside as it is; shows it by `displayText`.
    void setFullText(const QString& text);
    /// What stands on screen at the present width.
    [[nodiscard]] QString shownText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void updateToolTip();

    Qt::TextElideMode m_mode;
};

} // namespace keelbright

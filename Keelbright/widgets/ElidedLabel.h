#pragma once

#include "Keelbright/widgets/Label.h"

namespace keelbright {

/// A label of one line. A text that does not fit is cut (names at the end, paths in the middle), and
/// the tool tip then shows it whole. A screen reader always reads it whole.
class ElidedLabel : public Label
{
    Q_OBJECT

public:
    ElidedLabel(const QString& text, FontRole font, Role color, Qt::TextElideMode mode = Qt::ElideRight,
                QWidget* parent = nullptr);

    /// `text` may come from outside: it is shown through `displayText`.
    void setFullText(const QString& text);
    /// The text as it is drawn at the current width.
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

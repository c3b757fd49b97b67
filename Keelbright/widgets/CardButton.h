#pragma once

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QAbstractButton>

namespace keelbright {

/// A whole card or row that is one button: lay the content out in it as in any widget. The
/// content lets the pointer through; give the button an accessible name that says all of it.
class CardButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum class Frame {
        card, ///< a surface of its own, with a shadow
        none, ///< part of a card: shows itself only under the pointer or with the focus
    };

    explicit CardButton(Frame frame, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Frame m_frame;
    FocusRing m_focusRing;
};

} // namespace keelbright

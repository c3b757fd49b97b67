#pragma once

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/Roles.h"

#include <QAbstractButton>

namespace keelbright {

/// A card or a row that is one button. Give it a layout with its content, which must not take clicks,
/// and an accessible name that covers the whole content.
class CardButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum class Frame {
        card, ///< its own surface with a shadow
        none, ///< part of a card: visible only under the pointer or with the focus
    };

    explicit CardButton(Frame frame, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    /// The field of a `Frame::none` that shows pointer, focus and choice.
    [[nodiscard]] QRect highlight() const;

    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Frame m_frame;
    FocusRing m_focusRing;
};

} // namespace keelbright

#pragma once

#include <QVariantAnimation>
#include <QWidget>

class QVBoxLayout;

namespace keelbright {

/// Lets its content come and go with a short slide and a fade, and at once where motion is reduced
/// or nothing is on screen yet.
class SlideReveal : public QWidget
{
    Q_OBJECT

public:
    /// Takes the content over; it is not revealed at first.
    explicit SlideReveal(QWidget* content, QWidget* parent = nullptr);

    void setRevealed(bool isRevealed);

    [[nodiscard]] bool isRevealed() const { return m_isRevealed; }

private:
    void setPosition(double position);

    QWidget* m_revealed;
    QVBoxLayout* m_layout;
    QVariantAnimation m_animation;
    double m_position = 0;
    bool m_isRevealed = false;
};

} // namespace keelbright

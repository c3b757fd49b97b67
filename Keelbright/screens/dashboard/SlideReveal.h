#pragma once

#include <QVariantAnimation>
#include <QWidget>

class QVBoxLayout;

namespace keelbright {

/// Shows and hides its content with a short slide and a fade, or at once if motion is reduced or the
/// parent is not visible.
class SlideReveal : public QWidget
{
    Q_OBJECT

public:
    /// Takes ownership of the content, which is hidden at first.
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

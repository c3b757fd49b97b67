#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace keelbright {

/// A sequence of pages: a new current page slides in from its side and fades in. Only the current
/// page is reached by the keyboard and by screen readers.
class StepStack : public QWidget
{
    Q_OBJECT

public:
    explicit StepStack(QWidget* parent = nullptr);

    /// Takes ownership of the page.
    void addPage(QWidget* page);
    /// Shows the page, with an animation unless motion is reduced or the stack is not visible.
    void setCurrentIndex(int index);

    [[nodiscard]] int currentIndex() const { return m_current; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void placePages(double remaining);

    QList<QWidget*> m_pages;
    int m_current = 0;
    int m_direction = 1;
    QVariantAnimation m_glide;
};

} // namespace keelbright

#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace keelbright {

/// Pages that follow each other: the next one glides in from its side and fades in. Only the
/// current page takes part in the keyboard's way and in what a screen reader meets.
class StepStack : public QWidget
{
    Q_OBJECT

public:
    explicit StepStack(QWidget* parent = nullptr);

    /// Takes the page over.
    void addPage(QWidget* page);
    /// Glides there, or is simply there where motion is reduced or nothing is on screen yet.
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

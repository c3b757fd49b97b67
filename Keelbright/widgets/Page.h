#pragma once

#include <QPointer>
#include <QScrollArea>
#include <QTimer>

class QVBoxLayout;

namespace keelbright {

/// The scrolling page of a screen, with margins, a readable maximum width and the spacing of cards.
/// Put the sections into `content()`; a stretch at the end keeps them at the top.
class Page : public QScrollArea
{
    Q_OBJECT

public:
    explicit Page(QWidget* parent = nullptr);

    [[nodiscard]] QVBoxLayout* content() const { return m_content; }

    void setMaximumContentWidth(int width);

    /// Scrolls until the part, which has just come up, is in view, also while it still grows into its
    /// place; of a part that is higher than the page its beginning. Nothing while the page is hidden.
    void reveal(QWidget* part);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOutAround(const QWidget* part);
    void scrollToRevealed();

    QWidget* m_column;
    QVBoxLayout* m_content;
    QPointer<QWidget> m_revealed;
    QTimer m_revealing; ///< runs as long as a part may still grow
};

} // namespace keelbright

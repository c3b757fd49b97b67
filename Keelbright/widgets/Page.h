#pragma once

#include <QScrollArea>

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

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* m_column;
    QVBoxLayout* m_content;
};

} // namespace keelbright

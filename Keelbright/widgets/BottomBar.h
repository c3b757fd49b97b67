#pragma once

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

/// The bar at the bottom of a screen that holds its actions.
class BottomBar : public QWidget
{
    Q_OBJECT

public:
    explicit BottomBar(QWidget* parent = nullptr);

    [[nodiscard]] QHBoxLayout* content() const { return m_content; }

    /// Keeps the content below that of a `Page` of this maximum width, which is centred in the same way.
    void alignWithPage(int maximumContentWidth);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QHBoxLayout* m_content;
    int m_pageWidth = 0; ///< 0 for a bar that is aligned with no page
};

} // namespace keelbright

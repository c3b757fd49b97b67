#pragma once

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

/// The bar below a screen's page, where the way on always stays in reach.
class BottomBar : public QWidget
{
    Q_OBJECT

public:
    explicit BottomBar(QWidget* parent = nullptr);

    /// At the right; takes the widget over. The first one added stands leftmost.
    void addAction(QWidget* action);
    using QWidget::addAction;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_layout;
};

} // namespace keelbright

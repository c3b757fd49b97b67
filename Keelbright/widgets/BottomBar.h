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

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QHBoxLayout* m_content;
};

} // namespace keelbright

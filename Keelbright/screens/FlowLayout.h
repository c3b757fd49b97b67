#pragma once

#include <QLayout>
#include <QList>

namespace keelbright {

/// One beside the other, and on as many lines as the width asks for. What is hidden takes no room.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    FlowLayout(int horizontalSpacing, int verticalSpacing, QWidget* parent = nullptr);
    ~FlowLayout() override;
    Q_DISABLE_COPY_MOVE(FlowLayout)

    void addItem(QLayoutItem* item) override;

    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }

    [[nodiscard]] QLayoutItem* itemAt(int index) const override { return m_items.value(index); }

    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// Gives the height; `place` is told each item's rectangle.
    template <typename Place> int flow(const QRect& rect, Place place) const;

    int m_horizontalSpacing;
    int m_verticalSpacing;
    QList<QLayoutItem*> m_items;
};

} // namespace keelbright

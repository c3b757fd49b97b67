#pragma once

#include <QLayout>
#include <QList>

namespace keelbright {

/// Cards of one width in rows: all side by side where they fit, else in two or more rows of equal
/// length, so that none is cut in a narrow window.
class CardGridLayout : public QLayout
{
    Q_OBJECT

public:
    explicit CardGridLayout(QWidget* parent = nullptr);
    ~CardGridLayout() override;
    Q_DISABLE_COPY_MOVE(CardGridLayout)

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
    [[nodiscard]] int narrowestColumn() const;
    [[nodiscard]] int columnsWithin(int width) const;
    [[nodiscard]] int rowHeight() const;

    QList<QLayoutItem*> m_items;
};

} // namespace keelbright

#pragma once

#include <QLayout>
#include <QList>

namespace keelbright {

/// The base of a layout whose height depends on its width: keeps the items, which the layout places.
class ItemLayout : public QLayout
{
    Q_OBJECT

public:
    explicit ItemLayout(QWidget* parent = nullptr);
    ~ItemLayout() override;
    Q_DISABLE_COPY_MOVE(ItemLayout)

    void addItem(QLayoutItem* item) override;

    [[nodiscard]] int count() const override { return static_cast<int>(m_items.size()); }

    [[nodiscard]] QLayoutItem* itemAt(int index) const override { return m_items.value(index); }

    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

protected:
    [[nodiscard]] const QList<QLayoutItem*>& items() const { return m_items; }

private:
    QList<QLayoutItem*> m_items;
};

} // namespace keelbright

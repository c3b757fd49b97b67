#pragma once

#include "Keelbright/screens/shared/ItemLayout.h"

namespace keelbright {

/// Cards of one width: all side by side if they fit, else in two or more rows of equal length, so that
/// none is cut off in a narrow window.
class CardGridLayout : public ItemLayout
{
    Q_OBJECT

public:
    explicit CardGridLayout(QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    [[nodiscard]] int minimumColumnWidth() const;
    [[nodiscard]] int columnsWithin(int width) const;
    [[nodiscard]] int rowHeight() const;
};

} // namespace keelbright

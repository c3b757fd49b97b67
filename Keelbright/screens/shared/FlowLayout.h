#pragma once

#include "Keelbright/screens/shared/ItemLayout.h"

namespace keelbright {

/// One beside the other, and on as many lines as the width asks for. What is hidden takes no room.
class FlowLayout : public ItemLayout
{
    Q_OBJECT

public:
    FlowLayout(int horizontalSpacing, int verticalSpacing, QWidget* parent = nullptr);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// Gives the height; `place` is told each item's rectangle.
    template <typename Place> int flow(const QRect& rect, Place place) const;

    int m_horizontalSpacing;
    int m_verticalSpacing;
};

} // namespace keelbright

#pragma once

#include "Keelbright/screens/shared/ItemLayout.h"

namespace keelbright {

/// Items side by side, in as many lines as the width needs; closer together where that saves all lines but
/// one. Hidden items take no room.
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
    /// Calls `place` with each item and its rectangle; returns the height.
    template <typename Place> int flow(const QRect& rect, Place place) const;
    [[nodiscard]] int horizontalSpacing(int width) const;

    int m_horizontalSpacing;
    int m_verticalSpacing;
};

} // namespace keelbright

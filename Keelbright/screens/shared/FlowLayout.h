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

    /// Makes several lines about equally long, so that no single item stands on the last one.
    void setBalanced(bool isBalanced);

    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    /// Calls `place` with each item and its rectangle; returns the height.
    template <typename Place> int flow(const QRect& rect, Place place) const;
    [[nodiscard]] int horizontalSpacing(int width) const;
    /// The part of the width that the lines may take.
    [[nodiscard]] int lineWidth(int width) const;

    int m_horizontalSpacing;
    int m_verticalSpacing;
    bool m_isBalanced = false;
};

} // namespace keelbright

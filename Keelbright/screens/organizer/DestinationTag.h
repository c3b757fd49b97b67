#pragma once

#include <QWidget>

namespace keelbright {

class ElidedLabel;

/// Where something goes: an arrow and a place on a tint. A long place is cut in the middle.
class DestinationTag : public QWidget
{
    Q_OBJECT

public:
    explicit DestinationTag(QWidget* parent = nullptr);

    void setText(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ElidedLabel* m_place;
};

} // namespace keelbright

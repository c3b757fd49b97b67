#pragma once

#include "Keelbright/widgets/SymbolLabel.h"

#include <QVariantAnimation>

namespace keelbright {

/// A tile in the accent colour while it is on and in grey while it is off, with a fade of 0.2 seconds
/// between the two.
class FadingTile : public Tile
{
    Q_OBJECT

public:
    FadingTile(const QString& key, bool isOn, QWidget* parent = nullptr);

    void setOn(bool isOn);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVariantAnimation m_animation;
    bool m_isOn;
    double m_position;
};

} // namespace keelbright

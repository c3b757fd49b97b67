#pragma once

#include "Keelbright/widgets/SymbolLabel.h"

#include <QVariantAnimation>

namespace keelbright {

/// A tile that is in the accent colour while something is on and grey while it is off, and fades
/// from one to the other in 0.2 seconds.
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

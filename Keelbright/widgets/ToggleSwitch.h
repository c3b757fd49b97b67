#pragma once

#include "Keelbright/widgets/FocusRing.h"

#include <QCheckBox>
#include <QVariantAnimation>

namespace keelbright {

/// A switch that is on or off. Space or Enter toggles it; to a screen reader it is a check box.
class ToggleSwitch : public QCheckBox
{
    Q_OBJECT

public:
    /// `name` is the accessible name; no text is shown beside the switch.
    explicit ToggleSwitch(const QString& name, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {38, 24}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The position of the knob, from 0 (off) to 1 (on).
    [[nodiscard]] double position() const { return m_position; }

protected:
    void paintEvent(QPaintEvent* event) override;

    [[nodiscard]] bool hitButton(const QPoint& point) const override { return rect().contains(point); }

    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void slide(bool isOn);

    QVariantAnimation m_animation;
    double m_position = 0;
    FocusRing m_focusRing;
};

} // namespace keelbright

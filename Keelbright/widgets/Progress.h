#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QProgressBar>
#include <QTimer>
#include <QVariantAnimation>

namespace keelbright {

/// The base of bar and ring: a fraction, drawn exactly and read by a screen reader in whole percent.
/// Changes are animated over 0.3 seconds.
class FractionBar : public QProgressBar
{
    Q_OBJECT

public:
    /// From 0 to 1; other values are clamped.
    void setFraction(double fraction);

    [[nodiscard]] double fraction() const { return m_fraction; }

    void setColorRole(Role color);

    [[nodiscard]] Role colorRole() const { return m_color; }

protected:
    FractionBar(const QString& name, Role color, QWidget* parent);

    /// The fraction that is drawn at the moment, which differs from `fraction` during the animation.
    [[nodiscard]] double shownFraction() const { return m_shown; }

private:
    QVariantAnimation m_animation;
    double m_fraction = 0;
    double m_shown = 0;
    Role m_color;
};

/// A thin bar.
class BarProgress : public FractionBar
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    BarProgress(const QString& name, Role color = Role::accent, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {160, 6}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 6}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A ring that fills clockwise from the top, with a number and a caption in its centre.
class RingProgress : public FractionBar
{
    Q_OBJECT

public:
    /// `name` is the accessible name; diameter and thickness are in device-independent pixels.
    RingProgress(const QString& name, int diameter, int thickness, Role color = Role::accent,
                 QWidget* parent = nullptr);

    /// Sets the text in the centre and the caption below it, which is in the ring's colour or in grey.
    void setCenter(const QString& text, const QString& caption, bool isCaptionColored = true);

    [[nodiscard]] QString centerText() const { return m_centerText; }

    [[nodiscard]] QString caption() const { return m_caption; }

    [[nodiscard]] QSize sizeHint() const override { return {m_diameter, m_diameter}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_diameter;
    int m_thickness;
    QString m_centerText;
    QString m_caption;
    bool m_isCaptionColored = true;
};

/// A turning arc for work of unknown length. It does not turn if motion is reduced.
class Spinner : public QProgressBar
{
    Q_OBJECT

public:
    /// `name` is the accessible name.
    explicit Spinner(const QString& name, int diameter = 20, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {m_diameter, m_diameter}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    [[nodiscard]] bool isTurning() const { return m_timer.isActive(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int m_diameter;
    int m_angle = 0;
    QTimer m_timer;
};

} // namespace keelbright

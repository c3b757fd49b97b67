#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QProgressBar>
#include <QTimer>
#include <QVariantAnimation>

namespace keelbright {

/// What bar and ring share: a fraction that is drawn exactly and told to a screen reader in whole
/// percent. Changes glide over 0.3 seconds.
class FractionBar : public QProgressBar
{
    Q_OBJECT

public:
    /// From 0 to 1; what lies outside is cut.
    void setFraction(double fraction);

    [[nodiscard]] double fraction() const { return m_fraction; }

    void setColorRole(Role color);

    [[nodiscard]] Role colorRole() const { return m_color; }

protected:
    FractionBar(const QString& name, Role color, QWidget* parent);

    /// The fraction as it stands on screen at the moment.
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
    /// `name` is told to a screen reader.
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
    RingProgress(const QString& name, int diameter, int thickness, Role color = Role::accent,
                 QWidget* parent = nullptr);
    /// The number in the centre and the caption below it, in the ring's colour or, muted, in grey.
    void setCenter(const QString& number, const QString& caption, bool isCaptionColored = true);

    [[nodiscard]] QString number() const { return m_number; }

    [[nodiscard]] QString caption() const { return m_caption; }

    [[nodiscard]] QSize sizeHint() const override { return {m_diameter, m_diameter}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_diameter;
    int m_thickness;
    QString m_number;
    QString m_caption;
    bool m_isCaptionColored = true;
};

/// Turns while something of unknown length is under way; stands still where motion is reduced.
class Spinner : public QProgressBar
{
    Q_OBJECT

public:
    /// `name` is told to a screen reader.
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

#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

namespace keelbright {

/// The look of the program: colours, fonts and motion by role. Main thread, one for the program.
///
/// A custom widget asks for its colours when it paints; a widget that stores a colour asks for it
/// again on `changed`.
class Theme : public QObject
{
    Q_OBJECT

public:
    /// Made on first use; needs a QApplication.
    [[nodiscard]] static Theme& instance();

    /// Gives the application its style, palette and font. To be called once, before the first window.
    void install() const;

    [[nodiscard]] ColorScheme scheme() const { return m_scheme; }

    void setScheme(ColorScheme scheme);

    /// Faint texts and lines are strong while this is set.
    [[nodiscard]] bool isContrastHigh() const { return m_isContrastHigh; }

    void setContrastHigh(bool isHigh);

    /// No animation runs while this is set.
    [[nodiscard]] bool isMotionReduced() const { return m_isMotionReduced; }

    void setMotionReduced(bool isReduced) { m_isMotionReduced = isReduced; }

    /// `milliseconds`, or 0 if motion is reduced.
    [[nodiscard]] int duration(int milliseconds) const { return m_isMotionReduced ? 0 : milliseconds; }

    [[nodiscard]] QColor color(Role role) const;
    /// The opaque colour of `hue` drawn with opacity `amount` over `base`.
    [[nodiscard]] QColor tint(Role hue, double amount = tileTint, Role base = Role::card) const;
    [[nodiscard]] QFont font(FontRole role) const;
    /// For the toolkit's own widgets.
    [[nodiscard]] QPalette palette() const;

Q_SIGNALS:
    /// The colour scheme or the contrast has changed.
    void changed();

private:
    explicit Theme(QObject* parent);

    void applyColors();

    ColorScheme m_scheme = ColorScheme::light;
    bool m_isContrastHigh = false;
    bool m_isMotionReduced = false;
    QString m_family;
    double m_pointsPerPixel = 0.75;
};

/// `front`, with its own opacity, drawn over the opaque `back`.
[[nodiscard]] QColor composed(const QColor& back, const QColor& front);

} // namespace keelbright

#pragma once

#include "Keelbright/widgets/theme/Roles.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

namespace keelbright {

/// The look of the program: colours, fonts and motion by role. Main thread, one for the program.
///
/// A custom widget asks for its colours when it paints; a widget that keeps a colour takes a new
/// one on `changed`.
class Theme : public QObject
{
    Q_OBJECT

public:
    /// Made on first use; needs a QApplication.
    [[nodiscard]] static Theme& instance();

    /// Gives the application its style, palette and font. Once, before the first window.
    void install() const;

    [[nodiscard]] ColorScheme scheme() const { return m_scheme; }

    void setScheme(ColorScheme scheme);

    /// No animation runs while this is set.
    [[nodiscard]] bool isMotionReduced() const { return m_isMotionReduced; }

    void setMotionReduced(bool isReduced) { m_isMotionReduced = isReduced; }

    /// `milliseconds`, or 0 where motion is reduced.
    [[nodiscard]] int duration(int milliseconds) const { return m_isMotionReduced ? 0 : milliseconds; }

    [[nodiscard]] QColor color(Role role) const;
    /// Opaque: `hue` laid with opacity `amount` on `base`.
    [[nodiscard]] QColor tint(Role hue, double amount = tileTint, Role base = Role::card) const;
    [[nodiscard]] QFont font(FontRole role) const;
    /// For the toolkit's own widgets.
    [[nodiscard]] QPalette palette() const;

Q_SIGNALS:
    /// The scheme flipped.
    void changed();

private:
    explicit Theme(QObject* parent);

    ColorScheme m_scheme = ColorScheme::light;
    bool m_isMotionReduced = false;
    QString m_family;
    double m_pointsPerPixel = 0.75;
};

/// `front` with its own opacity laid on the opaque `back`.
[[nodiscard]] QColor composed(const QColor& back, const QColor& front);
/// The contrast of two opaque colours, from 1 to 21, as accessibility guidelines define it.
[[nodiscard]] double contrastRatio(const QColor& first, const QColor& second);

} // namespace keelbright

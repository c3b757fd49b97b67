#include "Keelbright/widgets/theme/Theme.h"

#include "Keelbright/widgets/theme/ApplicationStyle.h"
#include "Keelbright/widgets/theme/ThemeTokens.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPointer>
#include <QScreen>
#include <QToolTip>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

struct FontToken
{
    double size; ///< pixels at scale 1
    QFont::Weight weight;
};

FontToken fontToken(FontRole role)
{
    switch (role) {
    case FontRole::pageTitle:
        return {26, QFont::Bold};
    case FontRole::toolbarTitle:
        return {22, QFont::Bold};
    case FontRole::headline:
        return {17, QFont::DemiBold};
    case FontRole::sectionTitle:
        return {14, QFont::DemiBold};
    case FontRole::body:
        return {13, QFont::Normal};
    case FontRole::bodyStrong:
        return {13, QFont::Medium};
    case FontRole::secondary:
        return {12, QFont::Normal};
    case FontRole::caption:
        return {11.5, QFont::Normal};
    case FontRole::captionStrong:
        return {11, QFont::Medium};
    case FontRole::groupTitle:
        return {11.5, QFont::DemiBold};
    case FontRole::number:
        return {20, QFont::DemiBold};
    case FontRole::largeNumber:
        return {28, QFont::Bold};
    }
    return {13, QFont::Normal};
}

/// The desktop's UI font, or Inter if no desktop sets one and the toolkit gives only a generic name.
QString familyOfDesktop()
{
    const QString family = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    const bool isUnset = family.isEmpty() || family.compare("sans"_L1, Qt::CaseInsensitive) == 0 ||
                         family.compare("sans serif"_L1, Qt::CaseInsensitive) == 0 ||
                         family.compare("sans-serif"_L1, Qt::CaseInsensitive) == 0 ||
                         family.compare("helvetica"_L1, Qt::CaseInsensitive) == 0;
    return isUnset && QFontDatabase::hasFamily(u"Inter"_s) ? u"Inter"_s : family;
}

} // namespace

Theme& Theme::instance()
{
    static QPointer<Theme> theme;
    if (!theme)
        theme = new Theme(qApp);
    return *theme;
}

Theme::Theme(QObject* parent)
    : QObject(parent)
    , m_family(familyOfDesktop())
{
    // The sizes of the roles are pixels at 96 dots per inch. Given in points, fonts grow when the
    // desktop is set to more dots per inch; with fewer they keep their size in pixels.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dotsPerInch = screen != nullptr ? screen->logicalDotsPerInch() : 96.0;
    m_pointsPerPixel = 72.0 / std::min(96.0, dotsPerInch);
}

void Theme::install() const
{
    QApplication::setStyle(new ApplicationStyle);
    QApplication::setFont(font(FontRole::body));
    QApplication::setPalette(palette());
    QToolTip::setFont(font(FontRole::secondary));
    QToolTip::setPalette(palette());
}

void Theme::setScheme(ColorScheme scheme)
{
    if (scheme == m_scheme)
        return;
    m_scheme = scheme;
    qCDebug(widgetsLog) << "colour scheme:" << (scheme == ColorScheme::dark ? "dark" : "light");
    applyColors();
}

void Theme::setContrastHigh(bool isHigh)
{
    if (isHigh == m_isContrastHigh)
        return;
    m_isContrastHigh = isHigh;
    qCDebug(widgetsLog) << "high contrast:" << isHigh;
    applyColors();
}

void Theme::applyColors()
{
    QApplication::setPalette(palette());
    QToolTip::setPalette(palette());
    Q_EMIT changed();
}

QColor Theme::color(Role role) const
{
    return m_isContrastHigh ? strongTokenColor(role, m_scheme) : tokenColor(role, m_scheme);
}

QColor Theme::tint(Role hue, double amount, Role base) const
{
    QColor front = color(hue);
    front.setAlphaF(static_cast<float>(amount));
    return composed(color(base), front);
}

QFont Theme::font(FontRole role) const
{
    const FontToken token = fontToken(role);
    QFont font(m_family);
    font.setPointSizeF(token.size * m_pointsPerPixel);
    font.setWeight(token.weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    if (token.size >= 20)
        font.setLetterSpacing(QFont::PercentageSpacing, 99);
    return font;
}

QPalette Theme::palette() const
{
    const QColor text = color(Role::primaryText);
    const QColor faint = color(Role::emptyMark);
    QPalette palette(composed(color(Role::window), color(Role::hover)), color(Role::window));
    palette.setColor(QPalette::Window, color(Role::window));
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, color(Role::card));
    palette.setColor(QPalette::AlternateBase, composed(color(Role::card), color(Role::hover)));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, color(Role::card));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, color(Role::onFill));
    palette.setColor(QPalette::PlaceholderText, color(Role::secondaryText));
    palette.setColor(QPalette::Highlight, color(Role::accentFill));
    palette.setColor(QPalette::HighlightedText, color(Role::onFill));
    palette.setColor(QPalette::Link, color(Role::accentText));
    palette.setColor(QPalette::LinkVisited, color(Role::purpleText));
    palette.setColor(QPalette::ToolTipBase, color(Role::card));
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, color(Role::track));
    return palette;
}

QColor composed(const QColor& back, const QColor& front)
{
    const float alpha = front.alphaF();
    const auto mix = [alpha](float below, float above) { return below + (above - below) * alpha; };
    return QColor::fromRgbF(mix(back.redF(), front.redF()), mix(back.greenF(), front.greenF()),
                            mix(back.blueF(), front.blueF()));
}

} // namespace keelbright

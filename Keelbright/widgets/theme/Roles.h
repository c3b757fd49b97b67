#pragma once

namespace keelbright {

enum class ColorScheme { light, dark };

/// What a colour is for. A screen names a role, never a colour; `Theme` owns the colours.
///
/// Each hue stands in three strengths: the plain one for marks (icons, bars, rings, tiles), the
/// `...Text` one for words (readable on window, card, bars and on a tint of any hue), and the
/// `...Fill` one behind `onFill` words.
enum class Role {
    // Surfaces.
    window,
    sidebar, ///< also the menu bar and a bar at the bottom
    card,
    line,        ///< separates rows, frames cards
    controlLine, ///< frames what can be clicked
    selection,   ///< behind the chosen row of a list
    hover,       ///< over a surface while the pointer is on it
    pressed,
    track,  ///< the empty part of a bar, ring or switch
    shadow, ///< below a card

    // Words.
    primaryText,
    secondaryText, ///< on window and card only
    mutedText,     ///< the secondary words on a tint, the sidebar or a bar
    onFill,        ///< on every fill but the orange one
    onOrangeFill,  ///< white would be lost there

    // Marks only, too faint for words.
    emptyMark,

    // Hues.
    accent,
    purple,
    orange,
    green,
    red,
    teal,
    mint,
    pink,
    jade,
    azure,

    accentText,
    purpleText,
    orangeText,
    greenText,
    redText,
    tealText,
    mintText,
    pinkText,
    jadeText,
    azureText,

    accentFill,
    orangeFill,
    greenFill,
    redFill,
};

/// The strength for words of a hue; a role that is no hue stays itself, and `emptyMark` gives
/// `secondaryText`.
[[nodiscard]] Role textRole(Role hue);
/// The strength behind words; `accentFill` for a hue that has none.
[[nodiscard]] Role fillRole(Role hue);
/// The words on a fill.
[[nodiscard]] Role onFillRole(Role fill);

/// What a piece of text is for.
enum class FontRole {
    pageTitle,     ///< 26 bold
    toolbarTitle,  ///< 22 bold, where a toolbar shares the row
    headline,      ///< 17 semibold, of a card
    sectionTitle,  ///< 14 semibold
    body,          ///< 13
    bodyStrong,    ///< 13 medium: names of rows, buttons
    secondary,     ///< 12
    caption,       ///< 11.5
    captionStrong, ///< 11 medium, labels of small bars
    groupTitle,    ///< 11.5 semibold, above a group of rows
    number,        ///< 20 semibold
    largeNumber,   ///< 28 bold, in a ring
};

/// Measures of the layout, in device-independent pixels.
namespace Metrics {
inline constexpr int pageMarginX = 32;
inline constexpr int pageMarginY = 28;
/// A page does not grow wider than people read.
inline constexpr int pageMaxWidth = 1040;
inline constexpr int sectionSpacing = 18;
inline constexpr int cardSpacing = 12;
inline constexpr int cardPadding = 16;
/// From the side of a panel or a bar to what stands in it.
inline constexpr int panelPadding = 16;
inline constexpr int cardRadius = 12;
/// What a card leaves at its bottom for its shadow.
inline constexpr int cardShadow = 2;
inline constexpr int buttonHeight = 30;
inline constexpr int compactButtonHeight = 24;
inline constexpr int buttonRadius = 7;
inline constexpr int sidebarRow = 28;
inline constexpr int row = 48;
inline constexpr int tile = 30;
inline constexpr int tileRadius = 8;
} // namespace Metrics

/// How strongly a tile's colour stands behind its icon.
inline constexpr double tileTint = 0.14;
/// How strongly a panel is tinted.
inline constexpr double panelTint = 0.10;

} // namespace keelbright

#pragma once

namespace keelbright {

enum class ColorScheme { light, dark };

/// What a colour is for. A screen names a role, never a colour; `Theme` owns the colours.
///
/// Each hue has three variants: the plain one for marks (icons, bars, rings, tiles), the `...Text` one
/// for texts (readable on window, card, bars and on a tint of any hue), and the `...Fill` one for the
/// background of `onFill` texts.
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

    // Texts.
    primaryText,
    secondaryText, ///< on window and card only
    mutedText,     ///< secondary text on a tint, the sidebar or a bar
    onFill,        ///< on every fill except the orange one
    onOrangeFill,  ///< white is not readable there

    // Marks only, too faint for text.
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

/// The variant of a hue for text. `emptyMark` gives `secondaryText`; any other role that is no hue
/// gives itself.
[[nodiscard]] Role textRole(Role hue);
/// The variant of a hue for a background; `accentFill` for a hue without one.
[[nodiscard]] Role fillRole(Role hue);
/// The colour of a text on a fill.
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
/// The maximum width of a page, which keeps its lines readable.
inline constexpr int pageMaxWidth = 1040;
inline constexpr int sectionSpacing = 18;
inline constexpr int cardSpacing = 12;
inline constexpr int cardPadding = 16;
/// Between the edge of a panel or a bar and its content.
inline constexpr int panelPadding = 16;
inline constexpr int cardRadius = 12;
/// The height of a card's shadow, which is part of the card.
inline constexpr int cardShadow = 2;
inline constexpr int buttonHeight = 30;
inline constexpr int compactButtonHeight = 24;
inline constexpr int buttonRadius = 7;
inline constexpr int sidebarRow = 28;
inline constexpr int row = 48;
inline constexpr int tile = 30;
inline constexpr int tileRadius = 8;
} // namespace Metrics

/// The opacity of a tile's colour behind its icon.
inline constexpr double tileTint = 0.14;
/// The opacity of a panel's tint.
inline constexpr double panelTint = 0.10;

} // namespace keelbright

#pragma once

#include <QLatin1String>
#include <span>

namespace keelbright {

/// How a symbol is composed of glyphs of the icon font.
enum class SymbolForm {
    plain,  ///< only the glyph
    badge,  ///< a small second glyph at the lower right, cut out of the first
    ring,   ///< the glyph, smaller, inside a circle line
    struck, ///< the glyph, struck through
};

struct SymbolEntry
{
    QLatin1String key;
    char16_t glyph = 0;
    SymbolForm form = SymbolForm::plain;
    char16_t badge = 0;
};

/// Every symbolic icon key that the program may draw, sorted by key.
[[nodiscard]] std::span<const SymbolEntry> symbolTable();

} // namespace keelbright

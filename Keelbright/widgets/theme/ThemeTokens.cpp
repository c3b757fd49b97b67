#include "Keelbright/widgets/theme/ThemeTokens.h"

#include <algorithm>
#include <array>

namespace keelbright {

namespace {

struct Token
{
    Role role;
    QRgb light;
    QRgb dark;
};

constexpr QRgb rgb(unsigned hex)
{
    return 0xFF000000U | hex;
}

/// Opacities in whole per cent.
constexpr QRgb black(unsigned opacity)
{
    return (opacity * 255 + 50) / 100 << 24U;
}

constexpr QRgb white(unsigned opacity)
{
    return black(opacity) | 0x00FFFFFFU;
}

constexpr QRgb withOpacity(unsigned hex, unsigned opacity)
{
    return black(opacity) | hex;
}

constexpr std::array tokens{
    Token{Role::window, rgb(0xF5F5F7), rgb(0x1E1E20)},
    Token{Role::sidebar, rgb(0xECECF0), rgb(0x26262A)},
    Token{Role::card, rgb(0xFFFFFF), rgb(0x2A2A2E)},
    Token{Role::line, black(8), white(9)},
    Token{Role::controlLine, black(11), white(13)},
    Token{Role::selection, withOpacity(0x0A6CFF, 12), withOpacity(0x3D8BFF, 22)},
    Token{Role::hover, black(4), white(5)},
    Token{Role::pressed, black(8), white(10)},
    Token{Role::track, black(9), white(12)},
    Token{Role::shadow, black(5), black(16)},

    Token{Role::primaryText, rgb(0x1D1D1F), rgb(0xF5F5F7)},
    Token{Role::secondaryText, rgb(0x6E6E73), rgb(0xA1A1A6)},
    Token{Role::mutedText, rgb(0x5F5F64), rgb(0xB4B4B9)},
    Token{Role::onFill, rgb(0xFFFFFF), rgb(0xFFFFFF)},
    Token{Role::onOrangeFill, rgb(0x1D1D1F), rgb(0x1D1D1F)},
    Token{Role::emptyMark, rgb(0xA1A1A6), rgb(0x6E6E73)},

    Token{Role::accent, rgb(0x0A6CFF), rgb(0x3D8BFF)},
    Token{Role::purple, rgb(0x9B4DE0), rgb(0xB673F2)},
    Token{Role::orange, rgb(0xF08A00), rgb(0xFF9F2E)},
    Token{Role::green, rgb(0x28A745), rgb(0x3CC463)},
    Token{Role::red, rgb(0xE5383B), rgb(0xFF5A5F)},
    Token{Role::teal, rgb(0x2AA3B8), rgb(0x4BC3D8)},
    Token{Role::mint, rgb(0x12B8A6), rgb(0x3BD6C4)},
    Token{Role::pink, rgb(0xE8478B), rgb(0xFF6BA8)},
    Token{Role::jade, rgb(0x1AB399), rgb(0x1AB399)},
    Token{Role::azure, rgb(0x0080FF), rgb(0x0080FF)},

    Token{Role::accentText, rgb(0x0057D1), rgb(0x74ACFF)},
    Token{Role::purpleText, rgb(0x7E33C2), rgb(0xCFA0F8)},
    Token{Role::orangeText, rgb(0x935300), rgb(0xFFB961)},
    Token{Role::greenText, rgb(0x16702D), rgb(0x66DB88)},
    Token{Role::redText, rgb(0xB82226), rgb(0xFF9397)},
    Token{Role::tealText, rgb(0x14697A), rgb(0x6FD3E4)},
    Token{Role::mintText, rgb(0x0B6F64), rgb(0x5FE0D0)},
    Token{Role::pinkText, rgb(0xB3225F), rgb(0xFF97C2)},
    Token{Role::jadeText, rgb(0x0B6E5D), rgb(0x5FDCC4)},
    Token{Role::azureText, rgb(0x0057D1), rgb(0x74ACFF)},

    Token{Role::accentFill, rgb(0x0A6CFF), rgb(0x2472E8)},
    Token{Role::orangeFill, rgb(0xF59A1B), rgb(0xFF9F2E)},
    Token{Role::greenFill, rgb(0x1E843A), rgb(0x1E843A)},
    Token{Role::redFill, rgb(0xD92D31), rgb(0xD92D31)},
};

constexpr bool isInOrderOfRoles()
{
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].role != static_cast<Role>(i))
            return false;
    }
    return tokens.size() == static_cast<std::size_t>(Role::redFill) + 1;
}

static_assert(isInOrderOfRoles(), "tokens are looked up by the number of their role");

} // namespace

QColor tokenColor(Role role, ColorScheme scheme)
{
    const Token& token = tokens[static_cast<std::size_t>(role)];
    return QColor::fromRgba(scheme == ColorScheme::dark ? token.dark : token.light);
}

Role textRole(Role hue)
{
    if (hue == Role::emptyMark)
        return Role::secondaryText;
    if (hue < Role::accent || hue > Role::azure)
        return hue;
    return static_cast<Role>(static_cast<int>(hue) - static_cast<int>(Role::accent) +
                             static_cast<int>(Role::accentText));
}

Role fillRole(Role hue)
{
    switch (hue) {
    case Role::orange:
        return Role::orangeFill;
    case Role::green:
        return Role::greenFill;
    case Role::red:
        return Role::redFill;
    default:
        return Role::accentFill;
    }
}

Role onFillRole(Role fill)
{
    return fill == Role::orangeFill ? Role::onOrangeFill : Role::onFill;
}

QColor strongTokenColor(Role role, ColorScheme scheme)
{
    const auto inkOfOpacity = [scheme](float opacity) {
        QColor ink = tokenColor(Role::primaryText, scheme);
        ink.setAlphaF(opacity);
        return ink;
    };
    switch (role) {
    case Role::secondaryText:
    case Role::mutedText:
        return tokenColor(Role::primaryText, scheme);
    case Role::emptyMark: // also what is disabled, which must not look like what is enabled
        return tokenColor(Role::mutedText, scheme);
    case Role::line:
        return inkOfOpacity(0.45F);
    case Role::controlLine:
        return inkOfOpacity(0.75F);
    case Role::track:
        return inkOfOpacity(0.3F);
    default:
        return tokenColor(role, scheme);
    }
}

} // namespace keelbright

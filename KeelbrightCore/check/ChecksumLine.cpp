#include "KeelbrightCore/check/ChecksumLine.h"

#include <algorithm>

namespace keelbright {

namespace {

constexpr qsizetype hexDigits = 64;
/// A blank, and a second one or an asterisk.
constexpr qsizetype separatorSize = 2;

bool isHex(QByteArrayView text)
{
    return std::ranges::all_of(text, [](char character) {
        return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f') ||
               (character >= 'A' && character <= 'F');
    });
}

/// What an escape sequence stands for; nothing where there is no such sequence.
std::optional<char> unescaped(char character)
{
    switch (character) {
    case '\\':
        return '\\';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    default:
        return std::nullopt;
    }
}

std::optional<QByteArray> unescaped(QByteArrayView text)
{
    QByteArray path;
    path.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            path.append(text[i]);
            continue;
        }
        ++i;
        const auto character = i < text.size() ? unescaped(text[i]) : std::nullopt;
        if (!character)
            return std::nullopt;
        path.append(*character);
    }
    return path;
}

} // namespace

QByteArray ChecksumLine::text() const
{
    QByteArray name = path;
    name.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r");
    const QByteArray mark = name == path ? "" : "\\";
    return mark + digest.toHex() + "  " + name + '\n';
}

std::optional<ChecksumLine> ChecksumLine::fromText(const QByteArray& line)
{
    const bool isEscaped = line.startsWith('\\');
    const QByteArrayView rest = QByteArrayView(line).sliced(isEscaped ? 1 : 0);
    if (rest.size() <= hexDigits + separatorSize || !isHex(rest.first(hexDigits)) || rest[hexDigits] != ' ' ||
        (rest[hexDigits + 1] != ' ' && rest[hexDigits + 1] != '*'))
        return std::nullopt;
    const QByteArrayView name = rest.sliced(hexDigits + separatorSize);
    auto path = isEscaped ? unescaped(name) : name.toByteArray();
    if (!path || path->contains('\0'))
        return std::nullopt;
    return ChecksumLine{QByteArray::fromHex(rest.first(hexDigits).toByteArray()), std::move(*path)};
}

} // namespace keelbright

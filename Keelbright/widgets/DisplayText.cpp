#include "Keelbright/widgets/DisplayText.h"

#include <QTextDocument>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr char16_t controlPictures = u'\x2400';
constexpr char16_t deletePicture = u'\x2421';

bool turnsDirection(QChar character)
{
    const char16_t code = character.unicode();
    return code == u'\x200E' || code == u'\x200F' || (code >= u'\x202A' && code <= u'\x202E') ||
           (code >= u'\x2066' && code <= u'\x2069');
}

} // namespace

QString displayText(const QString& text)
{
    QString safe;
    safe.reserve(text.size());
    for (const QChar character : text) {
        const char16_t code = character.unicode();
        if (turnsDirection(character))
            continue;
        if (code < 0x20)
            safe.append(QChar(static_cast<char16_t>(controlPictures + code)));
        else if (code == 0x7F)
            safe.append(QChar(deletePicture));
        else if (code == u'\x2028' || code == u'\x2029' || (code >= 0x80 && code < 0xA0))
            safe.append(QChar(QChar::ReplacementCharacter));
        else
            safe.append(character);
    }
    return safe;
}

QString toolTipText(const QString& text)
{
    const QString safe = displayText(text);
    return Qt::mightBeRichText(safe) ? "<p>"_L1 + safe.toHtmlEscaped() + "</p>"_L1 : safe;
}

} // namespace keelbright

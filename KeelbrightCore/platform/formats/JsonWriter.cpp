#include "KeelbrightCore/platform/formats/JsonWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVarLengthArray>

#include <cstring>

namespace keelbright {

namespace {

constexpr qsizetype spacesPerLevel = 4;
/// A character of 16 bits as "\ud834".
constexpr qsizetype longestEscape = 6;

char* hexEscaped(char16_t character, char* out)
{
    constexpr char digits[] = "0123456789abcdef";
    *out++ = '\\';
    *out++ = 'u';
    for (int shift = 12; shift >= 0; shift -= 4)
        *out++ = digits[(character >> shift) & 0xf];
    return out;
}

/// A control character, a quotation mark or a backslash.
char* escaped(char16_t character, char* out)
{
    constexpr QByteArrayView characters = "\"\\\b\f\n\r\t";
    constexpr QByteArrayView letters = "\"\\bfnrt";
    const qsizetype place = characters.indexOf(static_cast<char>(character));
    if (place < 0)
        return hexEscaped(character, out);
    *out++ = '\\';
    *out++ = letters[place];
    return out;
}

char* utf8(char32_t character, char* out)
{
    const auto continuation = [&](int shift) {
        return static_cast<char>(0x80 | ((character >> shift) & 0x3f));
    };
    if (character < 0x800) {
        *out++ = static_cast<char>(0xc0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            *out++ = static_cast<char>(0xe0 | (character >> 12));
        } else {
            *out++ = static_cast<char>(0xf0 | (character >> 18));
            *out++ = continuation(12);
        }
        *out++ = continuation(6);
    }
    *out++ = continuation(0);
    return out;
}

/// Writes the text without its quotation marks; half of a surrogate pair has no UTF-8 and is escaped.
char* escapedUtf8(QStringView text, char* out)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t character = text[i].unicode();
        if (character < 0x80) {
            if (character < 0x20 || character == u'"' || character == u'\\')
                out = escaped(character, out);
            else
                *out++ = static_cast<char>(character);
        } else if (!text[i].isSurrogate()) {
            out = utf8(static_cast<char32_t>(character), out);
        } else if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            out = utf8(QChar::surrogateToUcs4(character, text[++i].unicode()), out);
        } else {
            out = hexEscaped(character, out);
        }
    }
    return out;
}

void appendEscaped(QByteArray& json, QStringView text)
{
    QVarLengthArray<char, 1024> buffer(text.size() * longestEscape);
    const char* end = escapedUtf8(text, buffer.data());
    json.append(buffer.constData(), end - buffer.constData());
}

/// Whether one of these eight bytes of UTF-8 is a character that JSON escapes.
bool needsEscape(quint64 bytes)
{
    constexpr quint64 ones = 0x0101010101010101;
    constexpr quint64 highBits = 0x80 * ones;
    // Subtracting takes the highest bit from a byte only where the byte is less than the subtrahend.
    const auto hasLessThan = [&](quint64 value, quint64 limit) {
        return ((value - limit * ones) & ~value & highBits) != 0;
    };
    return hasLessThan(bytes, ' ') || hasLessThan(bytes ^ ('"' * ones), 1) ||
           hasLessThan(bytes ^ ('\\' * ones), 1);
}

/// Looks at eight bytes at once, as hardly any text of a long list holds such a character.
bool needsEscape(QByteArrayView text)
{
    constexpr qsizetype width = sizeof(quint64);
    quint64 bytes = 0;
    qsizetype place = 0;
    for (; place + width <= text.size(); place += width) {
        std::memcpy(&bytes, text.data() + place, width);
        if (needsEscape(bytes))
            return true;
    }
    std::memset(&bytes, ' ', width);
    std::memcpy(&bytes, text.data() + place, static_cast<size_t>(text.size() - place));
    return needsEscape(bytes);
}

/// A value that is neither a text nor holds others.
QByteArray simpleText(const QJsonValue& value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return list.sliced(1).chopped(1);
}

} // namespace

JsonWriter::JsonWriter(int depth)
    : m_depth(depth)
{}

void JsonWriter::begin(char bracket)
{
    m_text.append(bracket);
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::end(char bracket)
{
    --m_depth;
    m_text.append('\n').append(m_depth * spacesPerLevel, ' ').append(bracket);
    m_isFirst = false;
}

void JsonWriter::beginEntry()
{
    if (!m_isFirst)
        m_text.append(',');
    m_text.append('\n').append(m_depth * spacesPerLevel, ' ');
    m_isFirst = false;
}

void JsonWriter::beginObject()
{
    begin('{');
}

void JsonWriter::endObject()
{
    end('}');
}

void JsonWriter::key(const QString& key)
{
    beginEntry();
    quoted(key);
    m_text.append(": ");
}

void JsonWriter::value(const QJsonValue& value)
{
    if (value.isString())
        quoted(value.toString());
    else if (value.isArray())
        list(value.toArray());
    else if (value.isObject())
        object(value.toObject());
    else
        m_text.append(simpleText(value));
}

void JsonWriter::value(const QStringList& texts)
{
    begin('[');
    for (const QString& entry : texts) {
        beginEntry();
        quoted(entry);
    }
    end(']');
}

void JsonWriter::writtenValue(const QByteArray& text)
{
    m_text.append(text);
}

void JsonWriter::list(const QJsonArray& values)
{
    begin('[');
    for (const auto& entry : values) {
        beginEntry();
        value(entry);
    }
    end(']');
}

void JsonWriter::object(const QJsonObject& members)
{
    beginObject();
    for (auto member = members.begin(); member != members.end(); ++member) {
        key(member.key());
        value(member.value());
    }
    endObject();
}

void JsonWriter::quoted(QStringView text)
{
    m_text.append('"');
    const qsizetype begin = m_text.size();
    m_text.resize(begin + m_encoder.requiredSpace(text.size()));
    const char* end = m_encoder.appendToBuffer(m_text.data() + begin, text);
    m_text.resize(end - m_text.constData());
    if (m_encoder.hasError() || needsEscape(QByteArrayView(m_text).sliced(begin))) {
        m_encoder.resetState();
        m_text.resize(begin);
        appendEscaped(m_text, text);
    }
    m_text.append('"');
}

} // namespace keelbright

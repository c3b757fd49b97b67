#include "KeelbrightCore/platform/formats/XmlPropertyList.h"

#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <vector>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

std::optional<QVariant> integer(QStringView text)
{
    const bool isNegative = text.startsWith(u'-');
    if (isNegative || text.startsWith(u'+'))
        text = text.mid(1);
    const bool isHexadecimal = text.startsWith("0x"_L1, Qt::CaseInsensitive);
    if (isHexadecimal)
        text = text.mid(2);
    if (text.isEmpty() || text.startsWith(u'-') || text.startsWith(u'+'))
        return std::nullopt;
    bool isWhole = false;
    const QString signedText = (isNegative ? u"-"_s : QString()) + text.toString();
    if (const qint64 value = signedText.toLongLong(&isWhole, isHexadecimal ? 16 : 10); isWhole)
        return QVariant::fromValue(value);
    if (const quint64 value = text.toULongLong(&isWhole, isHexadecimal ? 16 : 10); isWhole)
        return (isNegative ? -1.0 : 1.0) * static_cast<double>(value);
    return std::nullopt;
}

std::optional<QVariant> real(const QString& text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber ? std::optional<QVariant>(value) : std::nullopt;
}

std::optional<QVariant> data(QString text)
{
    text.removeIf([](QChar character) { return character.isSpace(); });
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional<QVariant>(*decoded) : std::nullopt;
}

/// The value of an element that holds text alone; nothing where it is none of these.
std::optional<QVariant> plainValue(const QString& element, const QString& text)
{
    if (element == "string"_L1)
        return text;
    if (element == "integer"_L1)
        return integer(QStringView(text).trimmed());
    if (element == "real"_L1)
        return real(text.trimmed());
    if (element == "true"_L1 && text.isEmpty())
        return true;
    if (element == "false"_L1 && text.isEmpty())
        return false;
    if (element == "data"_L1)
        return data(text);
    if (element == "date"_L1) {
        if (const auto date = DateFormatter::fromIso8601(text.trimmed()))
            return *date;
    }
    return std::nullopt;
}

/// The data from its first character on that is no blank. XML wants its declaration at the very
/// beginning, but lists written by hand begin with blank lines, and the platform reads them.
QByteArray withoutLeadingBlanks(const QByteArray& data)
{
    const QByteArrayView byteOrderMark("\xEF\xBB\xBF");
    const auto isBlank = [](char byte) {
        return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
    };
    const auto* start = data.cbegin() + (data.startsWith(byteOrderMark) ? byteOrderMark.size() : 0);
    const auto* first = std::find_if_not(start, data.cend(), isBlank);
    // Other encodings begin with a mark of their own, which is no blank.
    return QByteArray::fromRawData(first, data.cend() - first);
}

/// Reads element by element with a stack of its own, so that no depth of the input is a depth of
/// calls. `false` from a step means that this is no property list.
class Reader
{
public:
    explicit Reader(const QByteArray& data)
        : m_xml(data)
    {
        m_xml.setNamespaceProcessing(false);
    }

    [[nodiscard]] std::optional<QVariant> read()
    {
        while (!m_xml.atEnd()) {
            if (!step(m_xml.readNext()))
                return std::nullopt;
        }
        return m_xml.hasError() ? std::nullopt : m_top;
    }

private:
    struct Container
    {
        bool isDictionary = false;
        std::optional<QString> key; ///< of a dictionary, while its value is awaited
        QVariantMap map;
        QVariantList list;
    };

    [[nodiscard]] bool step(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            return start(m_xml.name().toString());
        case QXmlStreamReader::EndElement:
            return m_xml.name() == "plist"_L1 || endContainer();
        case QXmlStreamReader::Characters:
            return m_xml.isWhitespace();
        case QXmlStreamReader::DTD:
            // A property list has no entities of its own; they could expand to any size.
            return m_xml.entityDeclarations().isEmpty();
        case QXmlStreamReader::EntityReference:
            return false;
        default:
            return true;
        }
    }

    [[nodiscard]] bool start(const QString& element)
    {
        if (element == "plist"_L1)
            return m_open.empty() && !m_top && !std::exchange(m_isInside, true);
        if (element == "dict"_L1 || element == "array"_L1)
            return startContainer(element == "dict"_L1);
        const QString text = m_xml.readElementText();
        if (m_xml.hasError())
            return false;
        if (element == "key"_L1)
            return takeKey(text);
        const std::optional<QVariant> value = plainValue(element, text);
        return value && take(*value);
    }

    [[nodiscard]] bool startContainer(bool isDictionary)
    {
        if (!isPlaceForValue() || m_open.size() >= size_t{PropertyList::maximumDepth})
            return false;
        m_open.push_back({.isDictionary = isDictionary, .key = {}, .map = {}, .list = {}});
        return true;
    }

    [[nodiscard]] bool endContainer()
    {
        const Container container = std::move(m_open.back());
        m_open.pop_back();
        if (container.key)
            return false;
        return take(container.isDictionary ? QVariant(container.map) : QVariant(container.list));
    }

    [[nodiscard]] bool takeKey(const QString& key)
    {
        if (m_open.empty() || !m_open.back().isDictionary || m_open.back().key)
            return false;
        m_open.back().key = key;
        return true;
    }

    [[nodiscard]] bool isPlaceForValue() const
    {
        if (m_open.empty())
            return !m_top;
        return !m_open.back().isDictionary || m_open.back().key;
    }

    [[nodiscard]] bool take(const QVariant& value)
    {
        if (++m_values > PropertyList::maximumValues)
            return false;
        if (m_open.empty())
            return !std::exchange(m_top, value);
        Container& container = m_open.back();
        if (!container.isDictionary) {
            container.list.append(value);
            return true;
        }
        const std::optional<QString> key = std::exchange(container.key, std::nullopt);
        if (key)
            container.map.insert(*key, value);
        return key.has_value();
    }

    QXmlStreamReader m_xml;
    std::vector<Container> m_open;
    std::optional<QVariant> m_top;
    qint64 m_values = 0;
    bool m_isInside = false;
};

} // namespace

std::optional<QVariant> XmlPropertyList::read(const QByteArray& data)
{
    return Reader(withoutLeadingBlanks(data)).read();
}

} // namespace keelbright

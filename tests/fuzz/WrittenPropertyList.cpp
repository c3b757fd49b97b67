#include "tests/fuzz/WrittenPropertyList.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/fuzz/Fuzzer.h"

#include <QDateTime>
#include <QtEndian>
#include <bit>

namespace keelbright::fuzzing {

namespace {

QByteArray escaped(const QString& text)
{
    // A bare carriage return would be read as a line feed.
    return text.toHtmlEscaped().replace(u'\r', QStringLiteral("&#13;")).toUtf8();
}

QByteArray element(const QByteArray& name, const QByteArray& content)
{
    return '<' + name + '>' + content + "</" + name + '>';
}

QByteArray xmlElement(const QVariant& value)
{
    QByteArray inside;
    switch (value.typeId()) {
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
            inside += element("key", escaped(entry.key())) + xmlElement(entry.value());
        return element("dict", inside);
    }
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        for (const QVariant& part : list)
            inside += xmlElement(part);
        return element("array", inside);
    }
    case QMetaType::Bool:
        return value.toBool() ? "<true/>" : "<false/>";
    case QMetaType::LongLong:
        return element("integer", QByteArray::number(value.toLongLong()));
    case QMetaType::Double:
        return element("real", QByteArray::number(value.toDouble(), 'g', 17));
    case QMetaType::QDateTime:
        return element("date", DateFormatter::iso8601(value.toDateTime()).toLatin1());
    case QMetaType::QByteArray:
        return element("data", value.toByteArray().toBase64());
    case QMetaType::QString:
        return element("string", escaped(value.toString()));
    default:
        require(false, "a value is of one of the kinds that the header names");
        return {};
    }
}

QByteArray bigEndian(quint64 value)
{
    QByteArray bytes(8, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// A marker of this kind, and the count as a separate number after it.
QByteArray sized(unsigned kind, qsizetype count)
{
    return QByteArray(1, static_cast<char>(kind << 4U | 0xFU)) + '\x13' +
           bigEndian(static_cast<quint64>(count));
}

QByteArray utf16Text(const QString& text)
{
    QByteArray object = sized(0x6, text.size());
    for (const QChar character : text) {
        object += static_cast<char>(character.unicode() >> 8U);
        object += static_cast<char>(character.unicode() & 0xFFU);
    }
    return object;
}

QByteArray plainObject(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "\x09" : "\x08";
    case QMetaType::LongLong:
        return '\x13' + bigEndian(static_cast<quint64>(value.toLongLong()));
    case QMetaType::Double:
        return '\x23' + bigEndian(std::bit_cast<quint64>(value.toDouble()));
    case QMetaType::QDateTime: {
        static const QDateTime epoch(QDate(2001, 1, 1), QTime(0, 0, 0), utcZone);
        const double seconds = static_cast<double>(epoch.msecsTo(value.toDateTime())) / 1'000.0;
        return '\x33' + bigEndian(std::bit_cast<quint64>(seconds));
    }
    case QMetaType::QByteArray:
        return sized(0x4, value.toByteArray().size()) + value.toByteArray();
    case QMetaType::QString:
        return utf16Text(value.toString());
    default:
        require(false, "a value is of one of the kinds that the header names");
        return {};
    }
}

/// Writes each value as a separate object. Offsets and references take eight bytes.
class BinaryWriter
{
public:
    [[nodiscard]] QByteArray written(const QVariant& top)
    {
        const quint64 topIndex = add(top);
        const auto table = static_cast<quint64>(m_objects.size());
        QByteArray list = m_objects;
        for (const quint64 offset : m_offsets)
            list += bigEndian(offset);
        return list + QByteArray(6, '\0') + "\x08\x08" + bigEndian(static_cast<quint64>(m_offsets.size())) +
               bigEndian(topIndex) + bigEndian(table);
    }

private:
    /// Adds the value and gives the index of its object.
    quint64 add(const QVariant& value)
    {
        QByteArray object;
        if (value.typeId() == QMetaType::QVariantMap) {
            const QVariantMap map = value.toMap();
            object = sized(0xD, map.size());
            for (const QString& key : map.keys())
                object += bigEndian(add(key));
            for (const QVariant& part : map)
                object += bigEndian(add(part));
        } else if (value.typeId() == QMetaType::QVariantList) {
            const QVariantList list = value.toList();
            object = sized(0xA, list.size());
            for (const QVariant& part : list)
                object += bigEndian(add(part));
        } else {
            object = plainObject(value);
        }
        m_offsets.append(static_cast<quint64>(m_objects.size()));
        m_objects += object;
        return static_cast<quint64>(m_offsets.size()) - 1;
    }

    QByteArray m_objects = "bplist00";
    QList<quint64> m_offsets;
};

} // namespace

qint64 valueCount(const QVariant& value)
{
    qint64 count = 1;
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (const QVariant& part : map)
            count += valueCount(part);
    } else if (value.typeId() == QMetaType::QVariantList) {
        const QVariantList list = value.toList();
        for (const QVariant& part : list)
            count += valueCount(part);
    }
    return count;
}

int depth(const QVariant& value)
{
    int inside = 0;
    if (value.typeId() == QMetaType::QVariantMap) {
        const QVariantMap map = value.toMap();
        for (const QVariant& part : map)
            inside = qMax(inside, depth(part));
        return inside + 1;
    }
    if (value.typeId() == QMetaType::QVariantList) {
        const QVariantList list = value.toList();
        for (const QVariant& part : list)
            inside = qMax(inside, depth(part));
        return inside + 1;
    }
    return 0;
}

QByteArray writtenAsXml(const QVariant& value)
{
    return element("plist", xmlElement(value));
}

QByteArray writtenAsBinary(const QVariant& value)
{
    return BinaryWriter().written(value);
}

} // namespace keelbright::fuzzing

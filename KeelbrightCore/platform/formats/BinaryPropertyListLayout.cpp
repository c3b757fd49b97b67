#include "KeelbrightCore/platform/formats/BinaryPropertyListLayout.h"

namespace keelbright {

namespace {

using Kind = BinaryPropertyListLayout::Kind;

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;

/// Whether the marker's lower half is a length, with 15 for one that does not fit in there.
bool isSized(Kind kind)
{
    return kind == Kind::data || kind == Kind::asciiText || kind == Kind::utf16Text || kind == Kind::array ||
           kind == Kind::dictionary;
}

} // namespace

BinaryPropertyListLayout::BinaryPropertyListLayout(QByteArrayView data)
    : m_data(data)
{}

std::optional<BinaryPropertyListLayout> BinaryPropertyListLayout::of(QByteArrayView data)
{
    const auto size = static_cast<quint64>(data.size());
    if (size < headerSize + trailerSize || !data.startsWith("bplist00"))
        return std::nullopt;
    BinaryPropertyListLayout layout(data);
    const quint64 trailer = size - trailerSize;
    layout.m_offsetSize = layout.number(trailer + 6, 1);
    layout.m_referenceSize = layout.number(trailer + 7, 1);
    layout.m_objectCount = layout.number(trailer + 8, 8);
    layout.m_top = layout.number(trailer + 16, 8);
    layout.m_tableOffset = layout.number(trailer + 24, 8);
    const bool isSound = layout.m_offsetSize >= 1 && layout.m_offsetSize <= 8 &&
                         layout.m_referenceSize >= 1 && layout.m_referenceSize <= 8 &&
                         layout.m_tableOffset > headerSize && layout.m_tableOffset <= trailer &&
                         layout.m_objectCount <= (trailer - layout.m_tableOffset) / layout.m_offsetSize;
    if (!isSound)
        return std::nullopt;
    return layout;
}

std::optional<BinaryPropertyListLayout::Object> BinaryPropertyListLayout::object(quint64 index) const
{
    if (index >= m_objectCount)
        return std::nullopt;
    const quint64 offset = number(m_tableOffset + index * m_offsetSize, m_offsetSize);
    if (offset < headerSize || offset >= m_tableOffset)
        return std::nullopt;
    const quint64 marker = number(offset, 1);
    Object object{.kind = static_cast<Kind>(marker >> 4U), .count = marker & 0xFU, .offset = offset + 1};
    if (isSized(object.kind) && object.count == 0xF && !readLongCount(object))
        return std::nullopt;
    const std::optional<quint64> size = contentSize(object);
    if (!size || *size > m_tableOffset - object.offset)
        return std::nullopt;
    object.size = *size;
    return object;
}

bool BinaryPropertyListLayout::readLongCount(Object& object) const
{
    if (object.offset >= m_tableOffset)
        return false;
    const quint64 marker = number(object.offset, 1);
    const quint64 size = quint64{1} << (marker & 0xFU);
    if (static_cast<Kind>(marker >> 4U) != Kind::integer || size > 8 ||
        size > m_tableOffset - object.offset - 1)
        return false;
    object.count = number(object.offset + 1, size);
    object.offset += 1 + size;
    return true;
}

/// The bytes that the object's content takes; nothing for a kind or size that there is not.
std::optional<quint64> BinaryPropertyListLayout::contentSize(const Object& object) const
{
    // No count beyond the file's size can be right, and below it nothing overflows.
    if (object.count > static_cast<quint64>(m_data.size()))
        return std::nullopt;
    switch (object.kind) {
    case Kind::constant:
        return object.count == 8 || object.count == 9 ? std::optional<quint64>(0) : std::nullopt;
    case Kind::integer:
        return object.count <= 4 ? std::optional(quint64{1} << object.count) : std::nullopt;
    case Kind::real:
        return object.count == 2 || object.count == 3 ? std::optional(quint64{1} << object.count)
                                                      : std::nullopt;
    case Kind::date:
        return object.count == 3 ? std::optional<quint64>(8) : std::nullopt;
    case Kind::uid:
        return object.count < 8 ? std::optional(object.count + 1) : std::nullopt;
    case Kind::data:
    case Kind::asciiText:
        return object.count;
    case Kind::utf16Text:
        return object.count * 2;
    case Kind::array:
    case Kind::dictionary:
        return object.references() * m_referenceSize;
    }
    return std::nullopt;
}

quint64 BinaryPropertyListLayout::reference(const Object& container, quint64 position) const
{
    return number(container.offset + position * m_referenceSize, m_referenceSize);
}

QByteArrayView BinaryPropertyListLayout::bytes(const Object& object) const
{
    return m_data.sliced(static_cast<qsizetype>(object.offset), static_cast<qsizetype>(object.count));
}

quint64 BinaryPropertyListLayout::number(quint64 offset, quint64 size) const
{
    quint64 value = 0;
    for (quint64 i = 0; i < size; ++i)
        value = value << 8U | static_cast<quint8>(m_data[static_cast<qsizetype>(offset + i)]);
    return value;
}

} // namespace keelbright

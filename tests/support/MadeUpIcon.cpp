#include "tests/support/MadeUpIcon.h"

#include <QtEndian>
#include <array>

// Written byte by byte, since the logic and its tests link no library for pictures.

namespace keelbright::testing {

namespace {

constexpr int side = 128;

QByteArray bigEndian(quint32 value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

quint32 crc32(const QByteArray& data)
{
    quint32 remainder = 0xFFFFFFFFU;
    for (const char byte : data) {
        remainder ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder >> 1U) ^ ((remainder & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~remainder;
}

QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    return bigEndian(static_cast<quint32>(data.size())) + type + data + bigEndian(crc32(type + data));
}

QByteArray png(quint32 rgb)
{
    const std::array<char, 3> pixel{static_cast<char>(rgb >> 16U), static_cast<char>(rgb >> 8U),
                                    static_cast<char>(rgb)};
    QByteArray rows;
    for (int y = 0; y < side; ++y) {
        rows.append('\0'); // this row is stored unfiltered
        for (int x = 0; x < side; ++x)
            rows.append(pixel.data(), pixel.size());
    }
    constexpr char eightBitColour[] = {8, 2, 0, 0, 0};
    const QByteArray header = bigEndian(side) + bigEndian(side) + QByteArray(eightBitColour, 5);
    // qCompress puts the length in front of what is a zlib stream otherwise.
    return QByteArrayLiteral("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", header) +
           pngChunk("IDAT", qCompress(rows).mid(4)) + pngChunk("IEND", {});
}

} // namespace

QByteArray madeUpIcon(quint32 rgb)
{
    const QByteArray picture = png(rgb);
    const QByteArray entry = "ic07" + bigEndian(static_cast<quint32>(picture.size()) + 8) + picture;
    return "icns" + bigEndian(static_cast<quint32>(entry.size()) + 8) + entry;
}

} // namespace keelbright::testing

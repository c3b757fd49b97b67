#include "tests/support/MadeUpIcon.h"

#include <QtEndian>
#include <algorithm>
#include <array>
#include <cmath>

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

/// How much of a pixel lies within an edge that is so far away, to the inside below zero.
double covered(double distance)
{
    return std::clamp(0.5 - distance, 0.0, 1.0);
}

double outsideOfTile(double x, double y)
{
    constexpr double halfSide = 58;
    constexpr double corner = 26;
    const double beyondX = std::max(std::abs(x) - (halfSide - corner), 0.0);
    const double beyondY = std::max(std::abs(y) - (halfSide - corner), 0.0);
    return std::hypot(beyondX, beyondY) - corner;
}

double outsideOfRing(double x, double y)
{
    constexpr double radius = 30;
    constexpr double halfThickness = 5;
    return std::abs(std::hypot(x, y) - radius) - halfThickness;
}

/// One pixel, as seen from the middle of the picture.
std::array<char, 4> pixel(quint32 rgb, double x, double y)
{
    const double white = covered(outsideOfRing(x, y));
    const auto mixed = [white](quint32 channel) {
        return static_cast<char>(std::lround((channel & 0xFFU) * (1 - white) + 255 * white));
    };
    return {mixed(rgb >> 16U), mixed(rgb >> 8U), mixed(rgb),
            static_cast<char>(std::lround(255 * covered(outsideOfTile(x, y))))};
}

QByteArray png(quint32 rgb)
{
    constexpr double middle = (side - 1) / 2.0;
    QByteArray rows;
    for (int y = 0; y < side; ++y) {
        rows.append('\0'); // this row is stored unfiltered
        for (int x = 0; x < side; ++x)
            rows.append(pixel(rgb, x - middle, y - middle).data(), 4);
    }
    constexpr char eightBitColourAndOpacity[] = {8, 6, 0, 0, 0};
    const QByteArray header = bigEndian(side) + bigEndian(side) + QByteArray(eightBitColourAndOpacity, 5);
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

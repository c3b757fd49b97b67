#include "Keelbright/screens/apps/AppIconFile.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/formats/PropertyList.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>
#include <QtEndian>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headSize = 8; ///< of the file and of each entry: four letters and a length
constexpr qsizetype maximumEntries = 64;

struct Entry
{
    QByteArrayView type;
    QByteArrayView whole; ///< with its head
};

bool isPictureFormat(const QByteArray& extension)
{
    static const QByteArrayList formats{"png", "svg", "xpm", "jpg", "jpeg"};
    return formats.contains(extension);
}

struct KnownType
{
    QByteArrayView type;
    int side = 0;
};

constexpr KnownType knownTypes[] = {
    {"ic04", 16},  {"is32", 16},  {"icp4", 16},  {"ic05", 32},  {"il32", 32},   {"icp5", 32},
    {"ic11", 32},  {"ih32", 48},  {"ic12", 64},  {"icp6", 64},  {"ic07", 128},  {"it32", 128},
    {"ic08", 256}, {"ic13", 256}, {"ic09", 512}, {"ic14", 512}, {"ic10", 1024},
};

/// 0 for anything but a picture in colour.
int sideOf(QByteArrayView type)
{
    const auto* known = std::ranges::find(knownTypes, type, &KnownType::type);
    return known == std::end(knownTypes) ? 0 : known->side;
}

QByteArray bigEndian(qsizetype value)
{
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(value), bytes.data());
    return bytes;
}

/// Up to the first entry with a length that can't be right.
QList<Entry> entriesOf(QByteArrayView icns)
{
    QList<Entry> entries;
    if (!icns.startsWith("icns"))
        return entries;
    QByteArrayView rest = icns.sliced(std::min(headSize, icns.size()));
    while (rest.size() > headSize && entries.size() < maximumEntries) {
        const qsizetype size = qFromBigEndian<quint32>(rest.data() + 4);
        if (size < headSize || size > rest.size())
            break;
        entries.append({rest.first(4), rest.first(size)});
        rest = rest.sliced(size);
    }
    return entries;
}

/// The pictures that are large enough, the smallest of them first, then the others from the largest.
QList<Entry> byUsefulness(QList<Entry> pictures, int side)
{
    pictures.removeIf([](const Entry& entry) { return sideOf(entry.type) == 0; });
    std::ranges::stable_sort(pictures, [side](const Entry& a, const Entry& b) {
        const int sideOfA = sideOf(a.type);
        const int sideOfB = sideOf(b.type);
        if ((sideOfA >= side) != (sideOfB >= side))
            return sideOfA >= side;
        return sideOfA >= side ? sideOfA < sideOfB : sideOfA > sideOfB;
    });
    return pictures;
}

QImage decodeAs(const char* format, const QByteArray& data)
{
    QBuffer buffer;
    buffer.setData(data);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (size.width() > AppIconFile::maximumSide || size.height() > AppIconFile::maximumSide)
        return {};
    return reader.read();
}

/// Drawn in the size that is wanted. Not by Qt's plug-in, which is no part of every system's Qt.
QImage drawSvg(const QByteArray& data, int side)
{
    QSvgRenderer renderer(data);
    if (!renderer.isValid())
        return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    renderer.render(&painter);
    return square;
}

QImage decodePicture(const QByteArray& format, const QByteArray& data, int side)
{
    if (side <= 0)
        return {};
    if (format == "svg")
        return drawSvg(data, side);
    const QImage picture = decodeAs(format.constData(), data);
    return picture.isNull() ? picture : AppIconFile::asSquare(picture, side);
}

QImage decodeEntry(const Entry& picture, const QList<Entry>& entries)
{
    const QByteArrayView content = picture.whole.sliced(headSize);
    if (content.startsWith("\x89PNG"))
        return decodeAs("png", content.toByteArray());
    // The older formats keep the transparency in an entry of its own.
    QByteArray body = picture.whole.toByteArray();
    for (const Entry& entry : entries) {
        if (entry.type.endsWith("8mk"))
            body.append(entry.whole);
    }
    return decodeAs("icns", "icns" + bigEndian(body.size() + headSize) + body);
}

/// The icon's file as the bundle names it; absent if it names none.
std::optional<FileURL> iconFile(const FileURL& bundle)
{
    const FileURL contents = bundle.appending(u"Contents"_s);
    const auto list = PropertyList::dictionaryAt(contents.appending(u"Info.plist"_s));
    const QVariant value = list ? list->value(u"CFBundleIconFile"_s) : QVariant();
    QByteArray name = value.typeId() == QMetaType::QString ? value.toString().toUtf8() : QByteArray();
    // A path could lead out of the bundle.
    if (!isFileName(name))
        return std::nullopt;
    if (pathExtensionOf(name).compare("icns", Qt::CaseInsensitive) != 0)
        name += ".icns";
    return contents.appending(u"Resources"_s).appendingNative(name);
}

} // namespace

QImage AppIconFile::asSquare(const QImage& picture, int side)
{
    const QImage scaled = picture.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter(&square).drawImage((side - scaled.width()) / 2, (side - scaled.height()) / 2, scaled);
    return square;
}

QImage AppIconFile::read(const FileURL& source, int side)
{
    const QByteArray extension = pathExtensionOf(source.nativeLastPathComponent()).toByteArray().toLower();
    const bool isPicture = isPictureFormat(extension);
    const std::optional<FileURL> file = isPicture ? source : iconFile(source);
    if (!file)
        return {};
    const FileManager& fileManager = FileManager::defaultManager();
    const auto content = fileManager.contents(*file, maximumBytes);
    if (!content)
        return {};
    return isPicture ? decodePicture(extension, *content, side) : decode(*content, side);
}

QImage AppIconFile::decode(const QByteArray& icns, int side)
{
    if (side <= 0 || icns.size() > maximumBytes)
        return {};
    const QList<Entry> entries = entriesOf(icns);
    for (const Entry& picture : byUsefulness(entries, side)) {
        if (const QImage image = decodeEntry(picture, entries); !image.isNull())
            return asSquare(image, side);
    }
    return {};
}

} // namespace keelbright

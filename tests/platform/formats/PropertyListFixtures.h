#pragma once

#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"

#include <QDateTime>

namespace keelbright::testing {

inline QString text(const char* value)
{
    return QString::fromUtf8(value);
}

/// A whole XML property list around its content.
inline QByteArray xml(const QByteArray& content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST "
           "1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">" +
           content + "</plist>\n";
}

/// An XML property list whose dictionary has the element under the key "v".
inline QByteArray entry(const QByteArray& element)
{
    return xml("<dict><key>v</key>" + element + "</dict>");
}

inline QByteArray bigEndian(quint64 value, int size)
{
    QByteArray bytes;
    for (int shift = (size - 1) * 8; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>(value >> shift));
    return bytes;
}

/// Writes binary lists by hand, so that they can be wrong in every way. References are 2 bytes.
class BinaryList
{
public:
    /// Adds an object and gives its index.
    int add(const QByteArray& object)
    {
        m_offsets.append(static_cast<quint64>(m_data.size()));
        m_data.append(object);
        return static_cast<int>(m_offsets.size()) - 1;
    }

    int addText(const QByteArray& ascii)
    {
        return add(bigEndian(0x50U + static_cast<quint64>(ascii.size()), 1) + ascii);
    }

    int addArray(const QList<int>& elements) { return add(container(0xA0, elements.size(), elements)); }

    int addDictionary(int key, int value) { return add(container(0xD0, 1, {key, value})); }

    static QByteArray container(quint64 marker, qsizetype count, const QList<int>& references)
    {
        QByteArray object = bigEndian(marker + (count < 15 ? static_cast<quint64>(count) : 15U), 1);
        if (count >= 15)
            object += '\x12' + bigEndian(static_cast<quint64>(count), 4);
        for (const int reference : references)
            object += bigEndian(static_cast<quint64>(reference), 2);
        return object;
    }

    [[nodiscard]] QByteArray written(int top) const
    {
        QByteArray data = m_data;
        for (const quint64 offset : m_offsets)
            data += bigEndian(offset, 4);
        return data + QByteArray(6, '\0') + bigEndian(4, 1) + bigEndian(2, 1) +
               bigEndian(static_cast<quint64>(m_offsets.size()), 8) +
               bigEndian(static_cast<quint64>(top), 8) + bigEndian(static_cast<quint64>(m_data.size()), 8);
    }

private:
    QByteArray m_data = "bplist00";
    QList<quint64> m_offsets;
};

// Written by another program: Python's plistlib.
inline const QByteArray foreignBinary = QByteArray::fromBase64(
    "YnBsaXN0MDDeAQIDBAUGBwgJCgsMDQ4PEBESExQZGhseHyAhIl8QEkNGQnVuZGxlSWRlbnRpZmllclxDRkJ1bmRsZU5hbWVT"
    "YmlnVWNvdW50VGRhdGFUbGlzdFRsb25nWG5lZ2F0aXZlVm5lc3RlZFJub1RyZWFsVHdoZW5Ud2lkZVN5ZXNfEBBjb20uZXhh"
    "bXBsZS5rZWVsZwBLAOQAZQBsACDYPd5CFAAAAAAAAAAAgAAAAAAAAAUQA0MAAf+jFRYYUWGhF1Fi0F8RASx4eHh4eHh4eHh4"
    "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4"
    "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4"
    "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4"
    "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4"
    "eHgT//////////nRHB1Ra1F2CCM/+AAAAAAAADNBx6ocXgAAABMAAAEAAAAAAAkACAAlADoARwBLAFEAVgBbAGAAaQBwAHMA"
    "eAB9AIIAhgCZAKgAuQC7AL8AwwDFAMcAyQDKAfoCAwIGAggCCgILAhQCHQImAAAAAAAAAgEAAAAAAAAAIwAAAAAAAAAAAAAA"
    "AAAAAic=");

inline const QVariantMap foreignContent = {
    {text("CFBundleIdentifier"), text("com.example.keel")},
    {text("CFBundleName"), text("Käel 🙂")},
    {text("count"), qint64{3}},
    {text("negative"), qint64{-7}},
    {text("big"), 9223372036854775813.0},
    {text("wide"), qint64{1} << 40},
    {text("real"), 1.5},
    {text("yes"), true},
    {text("no"), false},
    {text("when"), QDateTime(QDate(2026, 3, 1), QTime(9, 5), utcZone)},
    {text("data"), QByteArray("\x00\x01\xFF", 3)},
    {text("list"), QVariantList{text("a"), QVariantList{text("b")}, QVariantMap{}}},
    {text("nested"), QVariantMap{{text("k"), text("v")}}},
    {text("long"), QString(300, u'x')},
};

} // namespace keelbright::testing

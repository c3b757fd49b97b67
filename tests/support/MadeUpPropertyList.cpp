#include "tests/support/MadeUpPropertyList.h"

#include <QtEndian>

namespace keelbright::testing {

namespace {

using Entries = QList<std::pair<QByteArray, QByteArray>>;

QByteArray xml(const Entries& entries)
{
    QByteArray list = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
)";
    for (const auto& [key, value] : entries)
        list += "\t<key>" + key + "</key>\n\t<string>" + value + "</string>\n";
    return list + "</dict>\n</plist>\n";
}

/// An object's kind in the high half of its first byte, its count in the low half; a count of 15
/// and more follows as an integer object of its own.
QByteArray marker(unsigned kind, qsizetype count)
{
    if (count < 15)
        return {1, static_cast<char>(kind << 4U | static_cast<unsigned>(count))};
    return QByteArray(1, static_cast<char>(kind << 4U | 15U)) + '\x10' + static_cast<char>(count);
}

QByteArray bigEndian(quint64 value)
{
    QByteArray bytes(8, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

/// Object 0 is the dictionary, then come all keys, then all values.
QByteArray binary(const Entries& entries)
{
    constexpr unsigned asciiText = 5;
    constexpr unsigned dictionary = 13;
    QByteArray top = marker(dictionary, entries.size());
    for (qsizetype reference = 1; reference <= 2 * entries.size(); ++reference)
        top += static_cast<char>(reference);
    QList<QByteArray> objects{top};
    for (const auto& entry : entries)
        objects += marker(asciiText, entry.first.size()) + entry.first;
    for (const auto& entry : entries)
        objects += marker(asciiText, entry.second.size()) + entry.second;

    QByteArray list = "bplist00";
    QByteArray offsets;
    for (const QByteArray& object : objects) {
        offsets += bigEndian(static_cast<quint64>(list.size())).last(2);
        list += object;
    }
    const auto offsetTable = static_cast<quint64>(list.size());
    constexpr char sizes[] = {0, 0, 0, 0, 0, 0, 2, 1}; // offsets take two bytes, references one
    return list + offsets + QByteArray(sizes, 8) + bigEndian(static_cast<quint64>(objects.size())) +
           bigEndian(0) + bigEndian(offsetTable);
}

} // namespace

QByteArray madeUpPropertyList(const Entries& entries, PropertyListForm form)
{
    return form == PropertyListForm::binary ? binary(entries) : xml(entries);
}

} // namespace keelbright::testing

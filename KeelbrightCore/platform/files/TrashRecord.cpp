#include "KeelbrightCore/platform/files/TrashRecord.h"

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QRandomGenerator>

namespace keelbright {

namespace {

/// What follows the last dot and is longer than this is hardly an extension; it may be cut.
constexpr qsizetype maximumExtension = 32;
/// After so many numbers a random one is taken: to try thousands in order would take too long.
constexpr int orderedAttempts = 64;

/// At most `size` bytes, with no character cut in two.
QByteArray shortened(const QByteArray& text, qsizetype size)
{
    if (text.size() <= size)
        return text;
    const auto isInsideCharacter = [&](qsizetype position) { return (text[position] & '\xC0') == '\x80'; };
    qsizetype end = size;
    for (int step = 0; step < 3 && end > 1 && isInsideCharacter(end); ++step)
        --end;
    return text.left(isInsideCharacter(end) ? size : end);
}

QByteArray numberFor(int attempt)
{
    if (attempt == 1)
        return {};
    if (attempt <= orderedAttempts)
        return ' ' + QByteArray::number(attempt);
    return ' ' + QByteArray::number(QRandomGenerator::global()->generate(), 16);
}

} // namespace

QByteArray TrashRecord::itemName(const QByteArray& name, int attempt, qsizetype longestRecord)
{
    const QByteArrayView extension = pathExtensionOf(name);
    const bool hasExtension = !extension.isEmpty() && extension.size() <= maximumExtension;
    const QByteArray ending = hasExtension ? name.right(extension.size() + 1) : QByteArray();
    const QByteArray tail = numberFor(attempt) + ending;
    const QByteArray stem = name.left(name.size() - ending.size());
    return shortened(stem, longestRecord - suffix.size() - tail.size()) + tail;
}

QByteArray TrashRecord::content(const QByteArray& path, const QDateTime& date)
{
    return "[Trash Info]\nPath=" + path.toPercentEncoding("/") +
           "\nDeletionDate=" + date.toString(QStringLiteral("yyyy-MM-dd'T'HH:mm:ss")).toLatin1() + '\n';
}

} // namespace keelbright

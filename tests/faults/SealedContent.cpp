#include "tests/faults/SealedContent.h"

#include <QCryptographicHash>
#include <algorithm>

namespace keelbright::testing {

namespace {

constexpr qsizetype checksumSize = 20;
constexpr qsizetype minimumSize = 64;

QByteArray checksum(QByteArrayView content)
{
    return QCryptographicHash::hash(content.toByteArray(), QCryptographicHash::Sha1);
}

} // namespace

QByteArray sealedContent(const QByteArray& name, int version, qsizetype size)
{
    const QByteArray head = name.left(minimumSize / 2) + '\n' + QByteArray::number(version) + '\n';
    QByteArray content = head;
    content.append(std::max(size, minimumSize) - head.size() - checksumSize,
                   static_cast<char>('a' + version % 26));
    return content + checksum(content);
}

std::optional<int> sealedVersion(const QByteArray& name, const QByteArray& content)
{
    const qsizetype bodySize = content.size() - checksumSize;
    const QByteArray head = name.left(minimumSize / 2) + '\n';
    if (bodySize < head.size() || !content.startsWith(head) ||
        checksum(QByteArrayView(content).first(bodySize)) != content.sliced(bodySize))
        return std::nullopt;
    return content.mid(head.size(), content.indexOf('\n', head.size()) - head.size()).toInt();
}

} // namespace keelbright::testing

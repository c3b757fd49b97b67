#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

namespace {

QByteArray normalized(const QByteArray& path)
{
    QByteArray result;
    result.reserve(path.size() + 1);
    result.append('/');
    for (const char byte : path) {
        if (byte == '\0')
            break;
        if (byte == '/' && result.endsWith('/'))
            continue;
        result.append(byte);
    }
    if (result.size() > 1 && result.endsWith('/'))
        result.chop(1);
    return result;
}

bool isPlainInUrl(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           QByteArrayView("-._~!$&'()*+,;=:@/").contains(byte);
}

int hexValue(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    return -1;
}

/// Nothing for a broken sequence and for an encoded NUL, which no path can hold.
std::optional<QByteArray> percentDecoded(QByteArrayView text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes.append(text[i]);
            continue;
        }
        if (i + 2 >= text.size())
            return std::nullopt;
        const int high = hexValue(text[i + 1]);
        const int low = hexValue(text[i + 2]);
        if (high < 0 || low < 0 || (high == 0 && low == 0))
            return std::nullopt;
        bytes.append(static_cast<char>(high * 16 + low));
        i += 2;
    }
    return bytes;
}

} // namespace

FileURL::FileURL()
    : m_path("/")
{}

FileURL FileURL::fromNativePath(QByteArray path)
{
    FileURL url;
    const bool isNormal = path.startsWith('/') && !path.contains("//") && !path.contains('\0') &&
                          (path.size() == 1 || !path.endsWith('/'));
    url.m_path = isNormal ? std::move(path) : normalized(path);
    return url;
}

FileURL FileURL::fromPath(const QString& path)
{
    return fromNativePath(path.toUtf8());
}

std::optional<FileURL> FileURL::fromAbsoluteString(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const QByteArrayView scheme("file://");
    if (bytes.left(scheme.size()).toLower() != scheme)
        return std::nullopt;
    const qsizetype pathStart = bytes.indexOf('/', scheme.size());
    if (pathStart < 0)
        return std::nullopt;
    const QByteArray host = bytes.mid(scheme.size(), pathStart - scheme.size());
    if (!host.isEmpty() && host.toLower() != "localhost")
        return std::nullopt;
    const std::optional<QByteArray> path = percentDecoded(QByteArrayView(bytes).sliced(pathStart));
    if (!path)
        return std::nullopt;
    return fromNativePath(*path);
}

QString FileURL::path() const
{
    return QString::fromUtf8(m_path);
}

QString FileURL::absoluteString() const
{
    static constexpr char hexDigits[] = "0123456789ABCDEF";
    QString text = QStringLiteral("file://");
    text.reserve(text.size() + m_path.size());
    for (const char byte : m_path) {
        if (isPlainInUrl(byte)) {
            text.append(QLatin1Char(byte));
            continue;
        }
        const auto value = static_cast<unsigned char>(byte);
        text.append(QLatin1Char('%'));
        text.append(QLatin1Char(hexDigits[value >> 4U]));
        text.append(QLatin1Char(hexDigits[value & 0xFU]));
    }
    return text;
}

QByteArray FileURL::nativeLastPathComponent() const
{
    if (m_path.size() == 1)
        return m_path;
    return m_path.mid(m_path.lastIndexOf('/') + 1);
}

QString FileURL::lastPathComponent() const
{
    return QString::fromUtf8(nativeLastPathComponent());
}

QString FileURL::pathExtension() const
{
    return QString::fromUtf8(pathExtensionOf(nativeLastPathComponent()));
}

FileURL FileURL::deletingLastPathComponent() const
{
    const qsizetype slash = m_path.lastIndexOf('/');
    FileURL parent;
    if (slash > 0)
        parent.m_path = m_path.left(slash);
    return parent;
}

FileURL FileURL::appending(const QString& component) const
{
    return appendingNative(component.toUtf8());
}

FileURL FileURL::appendingNative(QByteArrayView component) const
{
    if (component.isEmpty())
        return *this;
    QByteArray path = m_path;
    path.append('/');
    path.append(component);
    return fromNativePath(std::move(path));
}

QByteArrayView pathExtensionOf(QByteArrayView name)
{
    const qsizetype dot = name.lastIndexOf('.');
    if (dot <= 0 || dot + 1 == name.size())
        return {};
    return name.sliced(dot + 1);
}

bool isFileName(QByteArrayView name)
{
    return !name.isEmpty() && !name.contains('/') && !name.contains('\0') && name != "." && name != "..";
}

} // namespace keelbright

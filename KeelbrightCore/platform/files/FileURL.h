#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>

namespace keelbright {

/// The location of a file: an absolute path, held as the bytes that the file system uses.
///
/// A name that is not valid UTF-8 is carried exactly; only the texts for display are lossy
/// (each undecodable byte becomes U+FFFD). Doubled and trailing slashes are dropped; `.`, `..`
/// and symbolic links are left alone.
class FileURL
{
public:
    /// The root folder "/".
    FileURL();

    /// A relative path is taken as lying below the root. Bytes behind a NUL are dropped.
    [[nodiscard]] static FileURL fromNativePath(QByteArray path);
    /// As above, from text; encoded as UTF-8.
    [[nodiscard]] static FileURL fromPath(const QString& path);
    /// Reads the `file:///…` form; nothing for any other scheme, a foreign host, a broken
    /// percent sequence or an encoded NUL.
    [[nodiscard]] static std::optional<FileURL> fromAbsoluteString(const QString& text);

    /// The path's exact bytes; always begins with "/".
    [[nodiscard]] const QByteArray& nativePath() const { return m_path; }

    /// The path for display.
    [[nodiscard]] QString path() const;
    /// The `file:///…` form, percent-encoded; `fromAbsoluteString` gives back the same bytes.
    [[nodiscard]] QString absoluteString() const;

    /// The exact bytes of the last component; "/" for the root.
    [[nodiscard]] QByteArray nativeLastPathComponent() const;
    /// The last component for display.
    [[nodiscard]] QString lastPathComponent() const;
    /// What follows the last dot of the last component, without the dot; empty where there is
    /// none, where the name begins with its only dot, or where nothing follows it.
    [[nodiscard]] QString pathExtension() const;

    [[nodiscard]] FileURL deletingLastPathComponent() const;
    /// The location with `component` below it; an empty component changes nothing.
    [[nodiscard]] FileURL appending(const QString& component) const;
    [[nodiscard]] FileURL appendingNative(QByteArrayView component) const;

    friend bool operator==(const FileURL&, const FileURL&) = default;

    friend size_t qHash(const FileURL& url, size_t seed = 0) noexcept { return qHash(url.m_path, seed); }

private:
    QByteArray m_path;
};

/// The extension rule of `FileURL::pathExtension` on bare bytes, without making a text.
[[nodiscard]] QByteArrayView pathExtensionOf(QByteArrayView name);

/// Whether a folder can hold an entry of this name. Only then does a path that ends with it stay in
/// its folder.
[[nodiscard]] bool isFileName(QByteArrayView name);

} // namespace keelbright

#include "KeelbrightCore/platform/files/FileURL.h"
#include "tests/fuzz/Fuzzer.h"

namespace keelbright {
namespace {

using fuzzing::require;

void requireSoundLocation(const FileURL& url)
{
    const QByteArray& path = url.nativePath();
    require(path.startsWith('/') && !path.contains('\0') && !path.contains("//"), "a path is normal");
    require(path == "/" || !path.endsWith('/'), "no slash ends a path but the root's own");

    const QString text = url.absoluteString();
    const bool isPrintable = std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        return character > u' ' && character < QChar(0x7F);
    });
    require(isPrintable, "the text is made of printable ASCII");
    require(FileURL::fromAbsoluteString(text) == url, "the text gives back every byte");

    const FileURL parent = url.deletingLastPathComponent();
    require(path == "/" || parent.appendingNative(url.nativeLastPathComponent()) == url,
            "a path is its parent and its name");
    require(url.nativeLastPathComponent().endsWith(pathExtensionOf(url.nativeLastPathComponent())),
            "the extension ends the name");
}

} // namespace
} // namespace keelbright

/// The input is read both as the bytes of a path and as the text of a URL.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const QByteArray bytes = fuzzing::bytesOf(data, size);
    requireSoundLocation(FileURL::fromNativePath(bytes));
    if (!bytes.startsWith('/') && !bytes.contains('\0'))
        require(FileURL::fromNativePath('/' + bytes) == FileURL::fromNativePath(bytes),
                "a relative path lies below the root");
    if (const auto url = FileURL::fromAbsoluteString(QString::fromUtf8(bytes)))
        requireSoundLocation(*url);
    if (const auto url = FileURL::fromAbsoluteString(QStringLiteral("file:///") + QString::fromUtf8(bytes)))
        requireSoundLocation(*url);
    return 0;
}

#include "KeelbrightCore/storage/FileCategory.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

namespace keelbright {

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

namespace {

constexpr std::array imagesExtensions{"jpg"sv,  "jpeg"sv, "png"sv, "gif"sv,  "heic"sv,
                                      "heif"sv, "webp"sv, "bmp"sv, "tiff"sv, "tif"sv,
                                      "svg"sv,  "raw"sv,  "cr2"sv, "nef"sv,  "arw"sv};
constexpr std::array documentsExtensions{"pdf"sv,  "doc"sv,   "docx"sv,    "xls"sv, "xlsx"sv, "ppt"sv,
                                         "pptx"sv, "pages"sv, "numbers"sv, "key"sv, "txt"sv,  "rtf"sv,
                                         "md"sv,   "csv"sv,   "odt"sv,     "ods"sv, "odp"sv};
constexpr std::array videosExtensions{"mp4"sv, "mov"sv, "avi"sv,  "mkv"sv, "m4v"sv,
                                      "wmv"sv, "flv"sv, "webm"sv, "mpg"sv, "mpeg"sv};
constexpr std::array audioExtensions{"mp3"sv, "aac"sv, "wav"sv,  "flac"sv,
                                     "m4a"sv, "ogg"sv, "aiff"sv, "wma"sv};
constexpr std::array archivesExtensions{"zip"sv, "tar"sv, "gz"sv, "bz2"sv, "rar"sv, "7z"sv, "xz"sv};
constexpr std::array codeExtensions{"swift"sv, "py"sv, "js"sv, "ts"sv, "html"sv, "css"sv, "json"sv, "xml"sv,
                                    "sh"sv,    "rb"sv, "go"sv, "rs"sv, "cpp"sv,  "c"sv,   "h"sv,    "java"sv};
constexpr std::array installersExtensions{"dmg"sv, "pkg"sv, "app"sv};

constexpr size_t extensionCount = 76;

/// Put together by the compiler, which sorts it too.
constexpr auto extensionMap = [] {
    std::array<ExtensionCategory, extensionCount> map = {};
    auto next = map.begin();
    const auto add = [&next](const auto& extensions, FileCategory category) {
        for (const std::string_view extension : extensions)
            *next++ = {extension, category};
    };
    add(imagesExtensions, FileCategory::images);
    add(documentsExtensions, FileCategory::documents);
    add(videosExtensions, FileCategory::videos);
    add(audioExtensions, FileCategory::audio);
    add(archivesExtensions, FileCategory::archives);
    add(codeExtensions, FileCategory::code);
    add(installersExtensions, FileCategory::installers);
    std::ranges::sort(map, {}, &ExtensionCategory::extension);
    return map;
}();
static_assert(!extensionMap.front().extension.empty(), "every place of the map is taken");
static_assert(std::ranges::adjacent_find(extensionMap, {}, &ExtensionCategory::extension) ==
                  extensionMap.end(),
              "every extension stands for one category");

constexpr size_t longestExtension = std::ranges::max(extensionMap, {}, [](const ExtensionCategory& entry) {
                                        return entry.extension.size();
                                    }).extension.size();

constexpr char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

const QList<FileCategory>& allFileCategories()
{
    static const QList<FileCategory> categories{
        FileCategory::images,   FileCategory::documents, FileCategory::videos,     FileCategory::audio,
        FileCategory::archives, FileCategory::code,      FileCategory::installers, FileCategory::other};
    return categories;
}

QString rawValue(FileCategory category)
{
    switch (category) {
    case FileCategory::images:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Images"));
    case FileCategory::documents:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Documents"));
    case FileCategory::videos:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Videos"));
    case FileCategory::audio:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Audio"));
    case FileCategory::archives:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Archives"));
    case FileCategory::code:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Code"));
    case FileCategory::installers:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Installers"));
    case FileCategory::other:
        return QStringLiteral(QT_TRANSLATE_NOOP("FileCategory", "Other"));
    }
    Q_UNREACHABLE();
}

QString folderName(FileCategory category)
{
    return rawValue(category);
}

QString icon(FileCategory category)
{
    switch (category) {
    case FileCategory::images:
        return u"photo.fill"_s;
    case FileCategory::documents:
        return u"doc.fill"_s;
    case FileCategory::videos:
        return u"film.fill"_s;
    case FileCategory::audio:
        return u"music.note"_s;
    case FileCategory::archives:
        return u"archivebox.fill"_s;
    case FileCategory::code:
        return u"chevron.left.forwardslash.chevron.right"_s;
    case FileCategory::installers:
        return u"arrow.down.app.fill"_s;
    case FileCategory::other:
        return u"folder.fill"_s;
    }
    Q_UNREACHABLE();
}

std::span<const ExtensionCategory> fileCategoryExtensionMap()
{
    return extensionMap;
}

FileCategory fileCategory(const FileURL& url)
{
    const QByteArray& path = url.nativePath();
    return fileCategory(QByteArrayView(path).sliced(path.lastIndexOf('/') + 1));
}

FileCategory fileCategory(QByteArrayView name)
{
    const QByteArrayView extension = pathExtensionOf(name);
    // Asked for every file of a folder, so nothing is allocated here.
    std::array<char, longestExtension> letters = {};
    const auto length = static_cast<size_t>(extension.size());
    if (length > letters.size())
        return FileCategory::other;
    for (size_t i = 0; i < length; ++i)
        letters[i] = lowerCase(extension[static_cast<qsizetype>(i)]);
    const std::string_view key(letters.data(), length);
    const auto found = std::ranges::lower_bound(extensionMap, key, {}, &ExtensionCategory::extension);
    return found != extensionMap.end() && found->extension == key ? found->category : FileCategory::other;
}

} // namespace keelbright

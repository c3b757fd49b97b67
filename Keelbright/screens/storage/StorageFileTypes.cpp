#include "Keelbright/screens/storage/StorageFileTypes.h"

#include "KeelbrightCore/platform/text/ByteSum.h"

#include <QCoreApplication>
#include <QHash>
#include <algorithm>
#include <array>
#include <optional>
#include <span>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

struct FileType
{
    const char* label = nullptr;
    Role color = Role::secondaryText;
    QStringList extensions = {};
};

/// "Other" stands last and has no extensions.
std::span<const FileType> fileTypes()
{
    static const std::array types{
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Images"), Role::accent,
                 u"jpg jpeg png heic gif webp tiff raw cr2"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Video"), Role::purple,
                 u"mp4 mov avi mkv m4v"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Audio"), Role::pink,
                 u"mp3 aac wav flac m4a aiff"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Documents"), Role::green,
                 u"pdf doc docx xls xlsx ppt pptx pages key numbers txt md"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Archives"), Role::orange,
                 u"zip tar gz rar 7z dmg pkg"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Code"), Role::teal,
                 u"swift py js ts go rb rs java cpp c h"_s.split(u' ')},
        FileType{QT_TRANSLATE_NOOP("StorageFileTypes", "Other"), Role::secondaryText, {}},
    };
    return types;
}

size_t fileTypeIndex(const QString& ext)
{
    static const QHash<QString, size_t> indices = [] {
        QHash<QString, size_t> byExtension;
        for (size_t i = 0; i < fileTypes().size(); ++i) {
            for (const QString& extension : fileTypes()[i].extensions)
                byExtension.insert(extension, i);
        }
        return byExtension;
    }();
    return indices.value(ext, fileTypes().size() - 1);
}

QString translated(const char* label)
{
    return QCoreApplication::translate("StorageFileTypes", label);
}

QString lowerCasedExtension(const QString& name)
{
    const QByteArray bytes = name.toUtf8();
    return QString::fromUtf8(pathExtensionOf(bytes)).toLower();
}

struct IconRule
{
    QString icon;
    QStringList extensions;
};

QString iconFor(const QString& ext, std::span<const IconRule> rules)
{
    const auto rule = std::ranges::find_if(
        rules, [&](const IconRule& candidate) { return candidate.extensions.contains(ext); });
    return rule == rules.end() ? u"doc.fill"_s : rule->icon;
}

} // namespace

FileTypeLabel extLabelColor(const QString& ext)
{
    const FileType& type = fileTypes()[fileTypeIndex(ext)];
    return {translated(type.label), type.color};
}

QString extIcon(const QString& ext)
{
    static const std::array rules{
        IconRule{u"photo.fill"_s, u"jpg jpeg png heic gif webp"_s.split(u' ')},
        IconRule{u"film.fill"_s, u"mp4 mov avi mkv"_s.split(u' ')},
        IconRule{u"music.note"_s, u"mp3 aac wav flac m4a"_s.split(u' ')},
        IconRule{u"doc.richtext.fill"_s, {u"pdf"_s}},
        IconRule{u"archivebox.fill"_s, u"zip tar gz rar dmg pkg"_s.split(u' ')},
        IconRule{u"chevron.left.forwardslash.chevron.right"_s, u"swift py js ts go"_s.split(u' ')},
    };
    return iconFor(ext, rules);
}

QString fileIcon(const QString& name)
{
    static const std::array rules{
        IconRule{u"photo.fill"_s, u"jpg jpeg png heic gif webp"_s.split(u' ')},
        IconRule{u"film.fill"_s, u"mp4 mov avi mkv"_s.split(u' ')},
        IconRule{u"music.note"_s, u"mp3 m4a flac wav"_s.split(u' ')},
        IconRule{u"doc.richtext.fill"_s, {u"pdf"_s}},
        IconRule{u"archivebox.fill"_s, u"zip tar gz rar"_s.split(u' ')},
        IconRule{u"chevron.left.forwardslash.chevron.right"_s, u"swift py js ts rb go rs"_s.split(u' ')},
    };
    return iconFor(lowerCasedExtension(name), rules);
}

QList<FileTypeShare> typeBreakdown(const QList<FolderSizeNode>& nodes)
{
    std::optional<qint64> folderBytes;
    std::array<std::optional<qint64>, 7> fileBytes;
    for (const FolderSizeNode& node : nodes) {
        std::optional<qint64>& bytes =
            node.isDirectory ? folderBytes : fileBytes.at(fileTypeIndex(lowerCasedExtension(node.name)));
        bytes = addedWithoutOverflow(bytes.value_or(0), node.totalBytes);
    }
    QList<FileTypeShare> shares;
    if (folderBytes)
        shares.append(
            {QCoreApplication::translate("StorageFileTypes", "Folders"), *folderBytes, Role::accent});
    for (size_t i = 0; i < fileBytes.size(); ++i) {
        if (const std::optional<qint64> bytes = fileBytes.at(i))
            shares.append({translated(fileTypes()[i].label), *bytes, fileTypes()[i].color});
    }
    std::ranges::stable_sort(shares, std::ranges::greater(), &FileTypeShare::bytes);
    return shares;
}

} // namespace keelbright

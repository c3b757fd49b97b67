#include "Keelbright/state/DefaultFolders.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

RecommendedFolder recommended(const char* name, const QString& relativePath, const char* description,
                              const QString& icon, bool isEnabled)
{
    return {QUuid::createUuid(),
            QString::fromLatin1(name),
            relativePath,
            QString::fromLatin1(description),
            icon,
            isEnabled};
}

} // namespace

QList<RecommendedFolder> defaultRecommendedFolders()
{
    return {
        recommended(QT_TRANSLATE_NOOP("RecommendedFolder", "Desktop"), u"Desktop"_s,
                    QT_TRANSLATE_NOOP("RecommendedFolder", "Files saved directly to your desktop."),
                    u"menubar.rectangle"_s, true),
        recommended(
            QT_TRANSLATE_NOOP("RecommendedFolder", "Documents"), u"Documents"_s,
            QT_TRANSLATE_NOOP("RecommendedFolder", "Your personal documents, PDFs, spreadsheets, and more."),
            u"doc.fill"_s, true),
        recommended(QT_TRANSLATE_NOOP("RecommendedFolder", "Pictures"), u"Pictures"_s,
                    QT_TRANSLATE_NOOP("RecommendedFolder", "Images, screenshots, and photo exports."),
                    u"photo.fill"_s, true),
        recommended(
            QT_TRANSLATE_NOOP("RecommendedFolder", "Downloads"), u"Downloads"_s,
            QT_TRANSLATE_NOOP("RecommendedFolder", "Items downloaded from the web or received via AirDrop."),
            u"arrow.down.circle.fill"_s, false),
        recommended(QT_TRANSLATE_NOOP("RecommendedFolder", "Movies"), u"Movies"_s,
                    QT_TRANSLATE_NOOP("RecommendedFolder", "Video files and projects."), u"film.fill"_s,
                    false),
        recommended(QT_TRANSLATE_NOOP("RecommendedFolder", "Music"), u"Music"_s,
                    QT_TRANSLATE_NOOP("RecommendedFolder", "Music files and media projects."),
                    u"music.note"_s, false),
        recommended(QT_TRANSLATE_NOOP("RecommendedFolder", "Photos Library"),
                    u"Pictures/Photos Library.photoslibrary"_s,
                    QT_TRANSLATE_NOOP("RecommendedFolder", "Your Photos library package. Can be large."),
                    u"photo.stack.fill"_s, false),
    };
}

} // namespace keelbright

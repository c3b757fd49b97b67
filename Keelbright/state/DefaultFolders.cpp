#include "Keelbright/state/DefaultFolders.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* photosLibrary = QT_TRANSLATE_NOOP("RecommendedFolder", "Photos Library");

/// One of the folders that every desktop has. Its name is also its path on a Mac.
RecommendedFolder standard(const MachinePlaces& places, UserFolder folder, const char* name,
                           const char* description, const QString& icon, bool isEnabled)
{
    RecommendedFolder suggestion{QUuid::createUuid(),
                                 QString::fromLatin1(name),
                                 QString::fromLatin1(name),
                                 QString::fromLatin1(description),
                                 icon,
                                 isEnabled && !places.isSwitchedOff(folder)};
    if (!places.isMac())
        suggestion.place = places.userFolder(folder);
    return suggestion;
}

RecommendedFolder photos(const MachinePlaces& places)
{
    const QString library = u"Photos Library.photoslibrary"_s;
    RecommendedFolder suggestion{QUuid::createUuid(),
                                 QString::fromLatin1(photosLibrary),
                                 u"Pictures/"_s + library,
                                 QString::fromLatin1(QT_TRANSLATE_NOOP(
                                     "RecommendedFolder", "Your Photos library package. Can be large.")),
                                 u"photo.stack.fill"_s,
                                 false};
    if (!places.isMac())
        suggestion.place = places.userFolder(UserFolder::pictures).appending(library);
    return suggestion;
}

} // namespace

QList<RecommendedFolder> defaultRecommendedFolders()
{
    const MachinePlaces places(FileManager::defaultManager());
    return {
        standard(places, UserFolder::desktop, QT_TRANSLATE_NOOP("RecommendedFolder", "Desktop"),
                 QT_TRANSLATE_NOOP("RecommendedFolder", "Files saved directly to your desktop."),
                 u"menubar.rectangle"_s, true),
        standard(
            places, UserFolder::documents, QT_TRANSLATE_NOOP("RecommendedFolder", "Documents"),
            QT_TRANSLATE_NOOP("RecommendedFolder", "Your personal documents, PDFs, spreadsheets, and more."),
            u"doc.fill"_s, true),
        standard(places, UserFolder::pictures, QT_TRANSLATE_NOOP("RecommendedFolder", "Pictures"),
                 QT_TRANSLATE_NOOP("RecommendedFolder", "Images, screenshots, and photo exports."),
                 u"photo.fill"_s, true),
        standard(
            places, UserFolder::downloads, QT_TRANSLATE_NOOP("RecommendedFolder", "Downloads"),
            QT_TRANSLATE_NOOP("RecommendedFolder", "Items downloaded from the web or received via AirDrop."),
            u"arrow.down.circle.fill"_s, false),
        standard(places, UserFolder::movies, QT_TRANSLATE_NOOP("RecommendedFolder", "Movies"),
                 QT_TRANSLATE_NOOP("RecommendedFolder", "Video files and projects."), u"film.fill"_s, false),
        standard(places, UserFolder::music, QT_TRANSLATE_NOOP("RecommendedFolder", "Music"),
                 QT_TRANSLATE_NOOP("RecommendedFolder", "Music files and media projects."), u"music.note"_s,
                 false),
        photos(places),
    };
}

} // namespace keelbright

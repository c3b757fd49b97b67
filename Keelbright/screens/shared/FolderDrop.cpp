#include "Keelbright/screens/shared/FolderDrop.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace keelbright {

namespace {

QList<FileURL> foldersIn(const QMimeData& data)
{
    const FileManager& files = FileManager::defaultManager();
    QList<FileURL> folders;
    for (const QUrl& url : data.urls()) {
        // The encoded form keeps the bytes of a name that is no text.
        const std::optional<FileURL> item = FileURL::fromAbsoluteString(url.toString(QUrl::FullyEncoded));
        if (item && files.fileExists(*item).isDirectory)
            folders.append(*item);
    }
    return folders;
}

/// Takes the events before the screen, as a scroll area has none of its own for them.
class FolderDrop : public QObject
{
public:
    FolderDrop(QWidget& screen, std::function<void(const QList<FileURL>&)> dropped)
        : QObject(&screen)
        , m_dropped(std::move(dropped))
    {
        screen.setAcceptDrops(true);
        screen.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
            return offer(*static_cast<QDropEvent*>(event));
        case QEvent::Drop:
            return take(*static_cast<QDropEvent*>(event));
        default:
            return QObject::eventFilter(watched, event);
        }
    }

private:
    static bool offer(QDropEvent& event)
    {
        // What they are is looked up when they are dropped: a drive may take long to answer.
        event.setDropAction(Qt::CopyAction);
        event.setAccepted(event.mimeData()->hasUrls());
        return true;
    }

    bool take(QDropEvent& event)
    {
        const QList<FileURL> folders = foldersIn(*event.mimeData());
        // The items stay where they are, whatever the other program proposes.
        event.setDropAction(Qt::CopyAction);
        event.setAccepted(!folders.isEmpty());
        if (!folders.isEmpty())
            m_dropped(folders);
        return true;
    }

    std::function<void(const QList<FileURL>&)> m_dropped;
};

} // namespace

void acceptFolders(QWidget& screen, std::function<void(const QList<FileURL>&)> dropped)
{
    new FolderDrop(screen, std::move(dropped));
}

} // namespace keelbright

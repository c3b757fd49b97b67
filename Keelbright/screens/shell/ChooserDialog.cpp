#include "Keelbright/screens/shell/ChooserDialog.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QSplitter>
#include <QStyle>
#include <QUrl>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int placesWidth = 160;

/// One icon for all folders and one for all files, because the toolkit's own provider reads the disk
/// for each entry.
class PlainIcons : public QAbstractFileIconProvider
{
public:
    [[nodiscard]] QIcon icon(IconType type) const override
    {
        switch (type) {
        case Drive:
        case Computer:
            return QApplication::style()->standardIcon(QStyle::SP_DriveHDIcon);
        case File:
            return QApplication::style()->standardIcon(QStyle::SP_FileIcon);
        default:
            return QApplication::style()->standardIcon(QStyle::SP_DirIcon);
        }
    }

    [[nodiscard]] QIcon icon(const QFileInfo& info) const override
    {
        if (info.isRoot())
            return icon(Drive);
        return icon(info.isDir() ? Folder : File);
    }
};

PlainIcons* plainIcons()
{
    static PlainIcons icons;
    return &icons;
}

/// The role under which the toolkit keeps where a place leads; it has no public name for it.
constexpr int placeRole = Qt::UserRole + 1;

/// Home, the root folder, the mounted drives, and the folders in which such drives are, which hold those of a
/// network as well.
QList<QUrl> shortcuts(const QList<MountedVolume>& volumes)
{
    const FileManager& files = FileManager::defaultManager();
    QList<QUrl> urls{QUrl::fromLocalFile(files.homeDirectory().path()), QUrl::fromLocalFile(u"/"_s)};
    for (const MountedVolume& volume : volumes)
        urls.append(QUrl::fromLocalFile(volume.point.path()));
    for (const FileURL& folder : MachinePlaces::ownVolumeFolders(files)) {
        if (files.fileExists(folder).isDirectory)
            urls.append(QUrl::fromLocalFile(folder.path()));
    }
    return urls;
}

} // namespace

ChooserDialog::ChooserDialog(const QString& title, const QString& prompt, AcceptMode mode, QWidget* parent)
    : QFileDialog(parent, title)
{
    setOption(DontUseNativeDialog);
    setAcceptMode(mode);
    setLabelText(Accept, prompt);
    setDirectory(FileManager::defaultManager().homeDirectory().path());
    setViewMode(List);
    resize(760, 480);
    setIconProvider(plainIcons());
    const QList<MountedVolume> volumes = FileManager::defaultManager().mountedVolumes();
    setSidebarUrls(shortcuts(volumes));
    showLabels(volumes);
    // The toolkit makes the list of places too narrow for the names of most of them.
    if (auto* panes = findChild<QSplitter*>(u"splitter"_s))
        panes->setSizes({placesWidth, width() - placesWidth});
}

void ChooserDialog::showLabels(const QList<MountedVolume>& volumes)
{
    const auto* sidebar = findChild<QListView*>(u"sidebar"_s);
    if (sidebar == nullptr)
        return;
    QAbstractItemModel* places = sidebar->model();
    // Each time that the toolkit has read such a folder, it puts the folder's name there again.
    const auto apply = [places, volumes] {
        for (int row = 0; row < places->rowCount(); ++row) {
            const QModelIndex place = places->index(row, 0);
            const QString path = place.data(placeRole).toUrl().toLocalFile();
            const auto volume =
                std::ranges::find(volumes, path, [](const MountedVolume& each) { return each.point.path(); });
            if (volume == volumes.end() || place.data().toString() == volume->label)
                continue;
            // The label first: each change calls this again, and then there is nothing left to do.
            places->setData(place, volume->label, Qt::DisplayRole);
            places->setData(place, QApplication::style()->standardIcon(QStyle::SP_DriveHDIcon),
                            Qt::DecorationRole);
        }
    };
    connect(places, &QAbstractItemModel::dataChanged, this, apply);
    apply();
}

void ChooserDialog::startAt(const std::optional<FileURL>& folder)
{
    if (!folder)
        return;
    const FileManager& files = FileManager::defaultManager();
    for (const FileURL& candidate : {*folder, folder->deletingLastPathComponent()}) {
        if (files.fileExists(candidate).isDirectory) {
            setDirectory(candidate.path());
            return;
        }
    }
}

void ChooserDialog::ask(std::function<void()> accepted)
{
    setAttribute(Qt::WA_DeleteOnClose);
    connect(this, &QDialog::accepted, this, std::move(accepted));
    open();
}

QLineEdit* ChooserDialog::nameField() const
{
    return findChild<QLineEdit*>(u"fileNameEdit"_s);
}

QList<FileURL> ChooserDialog::markedItems() const
{
    const auto* view = findChild<QListView*>(u"listView"_s);
    const QLineEdit* field = nameField();
    if (view == nullptr || field == nullptr)
        return {};
    // The field repeats the marked names, in quotes if there are several. With any other text in it
    // the user has typed a name.
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    QStringList names;
    QList<FileURL> items;
    for (const QModelIndex& row : rows) {
        const QString name = row.data().toString();
        names.append(rows.size() > 1 ? u'"' + name + u'"' : name);
        // Not from the field, where the toolkit takes a name with quotes for the parent folder.
        if (row.parent() == view->rootIndex())
            items.append(FileURL::fromPath(row.data(QFileSystemModel::FilePathRole).toString()));
    }
    return field->text() == names.join(u' ') ? items : QList<FileURL>();
}

QList<FileURL> ChooserDialog::chosenItems() const
{
    QList<FileURL> items = markedItems();
    if (!items.isEmpty())
        return items;
    for (const QString& path : selectedFiles())
        items.append(FileURL::fromPath(path));
    return items;
}

} // namespace keelbright

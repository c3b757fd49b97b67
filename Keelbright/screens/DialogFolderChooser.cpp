#include "Keelbright/screens/DialogFolderChooser.h"

#include "KeelbrightCore/platform/FileManager.h"

#include <QAbstractFileIconProvider>
#include <QAbstractItemView>
#include <QApplication>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QStyle>
#include <QTreeView>
#include <QUrl>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// One picture for every folder. The toolkit's own provider looks each entry up on the disk.
class FolderIcons : public QAbstractFileIconProvider
{
public:
    [[nodiscard]] QIcon icon(IconType type) const override
    {
        const bool isDrive = type == Drive || type == Computer;
        return QApplication::style()->standardIcon(isDrive ? QStyle::SP_DriveHDIcon : QStyle::SP_DirIcon);
    }

    [[nodiscard]] QIcon icon(const QFileInfo& info) const override
    {
        return icon(info.isRoot() ? Drive : Folder);
    }
};

FolderIcons* folderIcons()
{
    static FolderIcons icons;
    return &icons;
}

/// Home, the whole machine, and where drives are found once they are plugged in.
QList<QUrl> shortcuts()
{
    const FileManager& files = FileManager::defaultManager();
    const FileURL home = files.homeDirectory();
    const QString user = home.lastPathComponent();
    QList<QUrl> urls{QUrl::fromLocalFile(home.path()), QUrl::fromLocalFile(u"/"_s)};
    for (const QString& place : {u"/Volumes"_s, u"/media/"_s + user, u"/run/media/"_s + user, u"/mnt"_s}) {
        const FileURL url = files.systemLocation(place);
        if (files.fileExists(url).isDirectory)
            urls.append(QUrl::fromLocalFile(url.path()));
    }
    return urls;
}

} // namespace

FolderDialog::FolderDialog(const FolderChooserRequest& request, QWidget* parent)
    : QFileDialog(parent, request.message)
{
    setOption(DontUseNativeDialog);
    setOption(ShowDirsOnly);
    setOption(ReadOnly, !request.canCreateDirectories);
    setFileMode(Directory);
    setAcceptMode(AcceptOpen);
    setLabelText(Accept, request.prompt);
    setDirectory(FileManager::defaultManager().homeDirectory().path());
    setSidebarUrls(shortcuts());
    setViewMode(List);
    resize(760, 480);
    setIconProvider(folderIcons());
    // There are only folders to choose from.
    for (QWidget* widget :
         {findChild<QWidget*>(u"fileTypeLabel"_s), findChild<QWidget*>(u"fileTypeCombo"_s)}) {
        if (widget != nullptr)
            widget->hide();
    }
    if (!request.allowsMultipleSelection)
        return;
    // The toolkit has no mode for several folders; its views can mark them all the same.
    for (auto* view : findChildren<QAbstractItemView*>()) {
        if (view->objectName() == "listView"_L1 || view->objectName() == "treeView"_L1)
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
}

QList<FileURL> FolderDialog::markedFolders() const
{
    const auto* view = findChild<QListView*>(u"listView"_s);
    const auto* field = findChild<QLineEdit*>(u"fileNameEdit"_s);
    if (view == nullptr || field == nullptr)
        return {};
    // The field repeats what is marked, in quotes where there are several; anything else in it was
    // typed.
    const QModelIndexList rows = view->selectionModel()->selectedRows();
    QStringList names;
    QList<FileURL> folders;
    for (const QModelIndex& row : rows) {
        const QString name = row.data().toString();
        names.append(rows.size() > 1 ? u'"' + name + u'"' : name);
        // The toolkit reads the field back, and takes a name with quotes in it for the folder above.
        if (row.parent() == view->rootIndex())
            folders.append(FileURL::fromPath(row.data(QFileSystemModel::FilePathRole).toString()));
    }
    return field->text() == names.join(u' ') ? folders : QList<FileURL>();
}

QList<FileURL> FolderDialog::chosenFolders() const
{
    QList<FileURL> folders = markedFolders();
    if (!folders.isEmpty())
        return folders;
    for (const QString& path : selectedFiles())
        folders.append(FileURL::fromPath(path));
    return folders;
}

void FolderDialog::accept()
{
    const QList<FileURL> folders = chosenFolders();
    const FileManager& files = FileManager::defaultManager();
    const bool areFolders = std::ranges::all_of(
        folders, [&files](const FileURL& url) { return files.fileExists(url).isDirectory; });
    if (areFolders && !folders.isEmpty())
        done(Accepted);
    else
        QFileDialog::accept(); // says what is wrong
}

void DialogFolderChooser::chooseFolders(const FolderChooserRequest& request,
                                        std::function<void(const QList<FileURL>&)> chosen)
{
    auto* dialog = new FolderDialog(request, QApplication::activeWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, dialog,
                     [dialog, chosen = std::move(chosen)] { chosen(dialog->chosenFolders()); });
    dialog->open();
}

} // namespace keelbright

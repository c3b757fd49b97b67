#include "Keelbright/screens/shell/DialogFolderChooser.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/SystemPanels.h"

#include <QAbstractItemView>
#include <QApplication>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

} // namespace

FolderDialog::FolderDialog(const FolderChooserRequest& request, QWidget* parent)
    : ChooserDialog(request.message, request.prompt, AcceptOpen, parent)
{
    setOption(ShowDirsOnly);
    setOption(ReadOnly, !request.canCreateDirectories);
    setFileMode(Directory);
    startAt(request.folder);
    // There are only folders to choose from.
    for (QWidget* widget :
         {findChild<QWidget*>(u"fileTypeLabel"_s), findChild<QWidget*>(u"fileTypeCombo"_s)}) {
        if (widget != nullptr)
            widget->hide();
    }
    if (!request.allowsMultipleSelection)
        return;
    // The toolkit has no mode for several folders, but its views can mark them.
    for (auto* view : findChildren<QAbstractItemView*>()) {
        if (view->objectName() == "listView"_L1 || view->objectName() == "treeView"_L1)
            view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
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
        QFileDialog::accept(); // reports what is wrong
}

void DialogFolderChooser::chooseFolders(const FolderChooserRequest& request,
                                        std::function<void(const QList<FileURL>&)> chosen)
{
    if (SystemPanels::areThere()) {
        SystemPanels::open({.message = request.message,
                            .prompt = request.prompt,
                            .choosesFolders = true,
                            .allowsMultipleSelection = request.allowsMultipleSelection,
                            .canCreateFolders = request.canCreateDirectories},
                           std::move(chosen));
        return;
    }
    auto* dialog = new FolderDialog(request, QApplication::activeWindow());
    dialog->ask([dialog, chosen = std::move(chosen)] { chosen(dialog->chosenFolders()); });
}

} // namespace keelbright

#include "Keelbright/screens/shell/DialogFileChooser.h"

#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/DisplayText.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/SystemPanels.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// "JSON files (*.json)"
QString nameFilter(const QStringList& extensions)
{
    QStringList kinds;
    QStringList patterns;
    for (const QString& extension : extensions) {
        kinds.append(extension.toUpper());
        patterns.append(u"*."_s + extension);
    }
    return OpenFileDialog::tr("%1 files").arg(kinds.join(u", "_s)) + u" ("_s + patterns.join(u' ') + u')';
}

void showWarning(QWidget* parent, const QString& text)
{
    auto* note = new QMessageBox(QMessageBox::Warning, parent->windowTitle(), text, QMessageBox::Ok, parent);
    note->setTextFormat(Qt::PlainText);
    note->setAttribute(Qt::WA_DeleteOnClose);
    note->open();
}

} // namespace

OpenFileDialog::OpenFileDialog(const FileOpenRequest& request, QWidget* parent)
    : ChooserDialog(request.message, request.prompt, AcceptOpen, parent)
    , m_extensions(request.extensions)
{
    setOption(ReadOnly);
    setFileMode(ExistingFile);
    startAt(request.folder);
    if (!m_extensions.isEmpty())
        setNameFilter(nameFilter(m_extensions));
}

std::optional<FileURL> OpenFileDialog::chosenFile() const
{
    const QList<FileURL> items = chosenItems();
    if (items.size() != 1)
        return std::nullopt;
    const FileExistence existence = FileManager::defaultManager().fileExists(items.first());
    if (!existence.exists || existence.isDirectory)
        return std::nullopt;
    return items.first();
}

bool OpenFileDialog::isOfRequestedKind(const FileURL& url) const
{
    return m_extensions.isEmpty() || m_extensions.contains(url.pathExtension(), Qt::CaseInsensitive);
}

void OpenFileDialog::accept()
{
    const std::optional<FileURL> file = chosenFile();
    if (!file)
        QFileDialog::accept(); // opens a folder, or reports what is wrong
    else if (isOfRequestedKind(*file))
        done(Accepted);
    else
        showWarning(this, tr("%1 is not one of the files that can be chosen here: %2.")
                              .arg(displayText(file->lastPathComponent()), selectedNameFilter()));
}

SaveFileDialog::SaveFileDialog(const FileSaveRequest& request, QWidget* parent)
    : ChooserDialog(request.title, request.prompt, AcceptSave, parent)
{
    setFileMode(AnyFile);
    startAt(request.folder);
    if (!request.extension.isEmpty()) {
        setDefaultSuffix(request.extension);
        setNameFilter(nameFilter({request.extension}));
    }
    selectFile(request.name);
}

std::optional<FileURL> SaveFileDialog::chosenFile() const
{
    const QLineEdit* field = nameField();
    const QString text = field != nullptr ? field->text() : QString();
    if (text.trimmed().isEmpty())
        return std::nullopt;
    // The toolkit would read quotes as separators between several names.
    if (text.contains(u'"'))
        return FileURL::fromPath(directory().absoluteFilePath(
            text.contains(u'.') || defaultSuffix().isEmpty() ? text : text + u'.' + defaultSuffix()));
    return FileURL::fromPath(selectedFiles().constFirst());
}

void SaveFileDialog::accept()
{
    const std::optional<FileURL> file = chosenFile();
    if (!file)
        return;
    const FileManager& files = FileManager::defaultManager();
    const FileExistence existence = files.fileExists(*file);
    const FileURL folder = file->deletingLastPathComponent();
    if (existence.isDirectory)
        QFileDialog::accept(); // opens it
    else if (existence.exists)
        askToReplace(*file);
    else if (files.fileExists(folder).isDirectory)
        done(Accepted);
    else
        showWarning(this, tr("There is no folder %1.").arg(displayText(folder.path())));
}

void SaveFileDialog::askToReplace(const FileURL& url)
{
    const AlertRequest request{
        .title = tr("Replace %1?").arg(displayText(url.lastPathComponent())),
        .message = tr("A file of this name is there already. What it holds now will be lost."),
        .action = tr("Replace"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
    };
    DialogAlertPresenter().present(this, request, [this] { done(Accepted); });
}

void DialogFileChooser::chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen)
{
    if (SystemPanels::areThere()) {
        const auto chooseFirst = [chosen = std::move(chosen)](const QList<FileURL>& files) {
            if (!files.isEmpty())
                chosen(files.first());
        };
        SystemPanels::open({.message = request.message,
                            .prompt = request.prompt,
                            .extensions = request.extensions,
                            .folder = request.folder},
                           chooseFirst);
        return;
    }
    auto* dialog = new OpenFileDialog(request, QApplication::activeWindow());
    dialog->ask([dialog, chosen = std::move(chosen)] {
        if (const std::optional<FileURL> file = dialog->chosenFile())
            chosen(*file);
    });
}

void DialogFileChooser::chooseSaveLocation(const FileSaveRequest& request,
                                           std::function<void(const FileURL&)> chosen)
{
    if (SystemPanels::areThere()) {
        SystemPanels::save({.title = request.title,
                            .prompt = request.prompt,
                            .name = request.name,
                            .extension = request.extension,
                            .folder = request.folder},
                           std::move(chosen));
        return;
    }
    auto* dialog = new SaveFileDialog(request, QApplication::activeWindow());
    dialog->ask([dialog, chosen = std::move(chosen)] {
        if (const std::optional<FileURL> file = dialog->chosenFile())
            chosen(*file);
    });
}

} // namespace keelbright

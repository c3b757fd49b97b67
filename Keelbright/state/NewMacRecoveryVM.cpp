#include "Keelbright/state/NewMacRecoveryVM.h"

#include "Keelbright/state/FileChooser.h"
#include "KeelbrightCore/platform/files/FileManager.h"

#include <QPointer>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The manifest in the file, or the reason why there is none to read.
std::expected<BackupManifest, QString> manifestIn(const FileURL& url)
{
    const auto data = FileManager::defaultManager().contents(url);
    if (!data)
        return std::unexpected(data.error().localizedDescription());
    const auto json = decodeJsonObject(*data);
    auto manifest = json ? BackupManifest::fromJson(*json) : std::unexpected(json.error());
    if (!manifest)
        return std::unexpected(manifest.error().localizedDescription());
    return *std::move(manifest);
}

} // namespace

NewMacRecoveryVM::NewMacRecoveryVM(FileChooser& files, QObject* parent)
    : QObject(parent)
    , m_files(files)
{}

void NewMacRecoveryVM::loadManifest(const std::optional<FileURL>& start)
{
    const FileOpenRequest request{
        .message = tr("Select the recovery-manifest.json from your backup."),
        .prompt = tr("Load"),
        .extensions = {u"json"_s},
        .folder = start,
    };
    // The screen may have been left while the chooser was open.
    m_files.chooseFile(request, [model = QPointer(this)](const FileURL& url) {
        if (model)
            model->readManifest(url);
    });
}

void NewMacRecoveryVM::readManifest(const FileURL& url)
{
    const auto manifest = manifestIn(url);
    m_manifestData = manifest ? std::optional(*manifest) : std::nullopt;
    m_loadError =
        manifest ? std::nullopt : std::optional(tr("Could not read manifest: %1").arg(manifest.error()));
    Q_EMIT changed();
}

} // namespace keelbright

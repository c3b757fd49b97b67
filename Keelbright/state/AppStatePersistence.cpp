// How the state is loaded and saved, and how the user chooses folders.

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/DefaultFolders.h"
#include "Keelbright/state/FolderChooser.h"
#include "KeelbrightCore/platform/system/Console.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/BackupConfigStore.h"

#include <QPointer>

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// If it is there, a migration is due.
QString legacyDestinationKey()
{
    return u"kb.selectedDestination"_s;
}

/// The same destination after a migration that could not be saved: the next start begins it again.
QString unsavedDestinationKey()
{
    return u"kb.unsavedDestination"_s;
}

/// Which of the two there is; empty where no migration is due.
QString dueDestinationKey(const UserDefaults& defaults)
{
    for (const QString& key : {legacyDestinationKey(), unsavedDestinationKey()}) {
        if (defaults.dataForKey(key))
            return key;
    }
    return {};
}

template <typename Record>
std::optional<Record> legacyRecord(const UserDefaults& defaults, const QString& key)
{
    const auto data = defaults.dataForKey(key);
    if (!data)
        return std::nullopt;
    const auto json = decodeJsonObject(*data);
    if (!json)
        return std::nullopt;
    auto record = Record::fromJson(*json);
    if (!record)
        return std::nullopt;
    return *std::move(record);
}

std::optional<QList<BackupSource>> legacySources(const UserDefaults& defaults)
{
    const auto data = defaults.dataForKey(u"kb.customSources"_s);
    if (!data)
        return std::nullopt;
    const auto json = decodeJsonArray(*data);
    if (!json)
        return std::nullopt;
    auto sources = recordsFromJson<BackupSource>(*json);
    if (!sources)
        return std::nullopt;
    return *std::move(sources);
}

/// For the log: how many folders go where.
QString choiceText(const QList<BackupSource>& sources, const std::optional<BackupDestination>& destination)
{
    const QString place = destination ? u"destination "_s + destination->url.path() : u"no destination"_s;
    return u"%1 folders, %2"_s.arg(QString::number(sources.size()), place);
}

QStringList enabledNames(const QList<RecommendedFolder>& folders)
{
    QStringList names;
    for (const RecommendedFolder& folder : folders) {
        if (folder.isEnabled)
            names.append(folder.name);
    }
    return names;
}

} // namespace

void AppState::loadPersistedState()
{
    const AppConfiguration config = m_services.configStore.load();
    const QString legacyKey = dueDestinationKey(m_services.userDefaults);
    if (!config.selectedDestination && !legacyKey.isEmpty()) {
        migrateFromUserDefaults(legacyKey);
        return;
    }
    if (legacyKey == unsavedDestinationKey())
        m_services.userDefaults.removeObjectForKey(legacyKey); // a later save has succeeded
    setLastReport(config.lastReport);
    setLastBackupTime(config.lastBackupTime);
    m_services.configStore.beginRewrite();
    // An empty list looks like a configuration that never held one, so the defaults stay.
    if (!config.enabledRecommendedFolders.isEmpty())
        enableRecommendedFolders(config.enabledRecommendedFolders);
    // Each of these saves, so the file is complete only after the last one.
    setCustomSources(config.customSources);
    setSelectedDestination(config.selectedDestination);
    m_services.configStore.endRewrite();
    qCDebug(stateLog).noquote() << "loaded:" << choiceText(allEnabledSources(), m_selectedDestination);
    printDiagnostics();
}

void AppState::migrateFromUserDefaults(const QString& destinationKey)
{
    printLine(u"Migrating from UserDefaults to BackupConfigStore..."_s);
    UserDefaults& defaults = m_services.userDefaults;
    if (const auto report = legacyRecord<BackupReport>(defaults, u"kb.lastReport"_s)) {
        setLastReport(report);
        setLastBackupTime(report->completedAt);
    }
    // Unlike in the configuration, an empty list disables all folders.
    if (const auto names = defaults.stringArrayForKey(u"kb.enabledRecommended"_s))
        enableRecommendedFolders(*names);
    if (const auto sources = legacySources(defaults))
        setCustomSources(*sources);
    const auto destination = legacyRecord<BackupDestination>(defaults, destinationKey);
    if (destination)
        setSelectedDestination(destination);
    // What could not be read has no second attempt. What could not be saved is nowhere else.
    if (destination && !m_services.configStore.isSaved())
        defaults.renameKey(destinationKey, unsavedDestinationKey());
    else
        defaults.removeObjectForKey(destinationKey);
    persistState();
    if (m_services.configStore.isSaved() && defaults.dataForKey(unsavedDestinationKey()))
        defaults.removeObjectForKey(unsavedDestinationKey());
}

void AppState::enableRecommendedFolders(const QStringList& names)
{
    for (qsizetype index = 0; index < m_recommendedFolders.size(); ++index)
        setRecommendedFolderEnabled(index, names.contains(m_recommendedFolders.at(index).name));
}

void AppState::printDiagnostics() const
{
    printLine(u"--- Keel Bright Diagnostics ---"_s);
    for (const RecommendedFolder& folder : m_recommendedFolders) {
        printLine(u"Folder: %1, Path: %2, Exists: %3"_s.arg(folder.name, folder.url().path(),
                                                            folder.exists() ? u"true"_s : u"false"_s));
    }
    printLine(u"-------------------------------"_s);
}

void AppState::persistState()
{
    qCDebug(stateLog).noquote() << "save:" << choiceText(allEnabledSources(), m_selectedDestination);
    m_services.configStore.save({
        .selectedDestination = m_selectedDestination,
        .customSources = m_customSources,
        .enabledRecommendedFolders = enabledNames(m_recommendedFolders),
        .lastReport = m_lastReport,
        .lastBackupTime = m_lastBackupTime,
    });
}

void AppState::addCustomSource(const FileURL& url)
{
    const QList<BackupSource> present = allEnabledSources();
    if (std::any_of(present.cbegin(), present.cend(),
                    [&](const BackupSource& source) { return source.url == url; }))
        return;
    setCustomSources(m_customSources + QList{BackupSource{QUuid::createUuid(), url, true}});
}

void AppState::removeCustomSource(const BackupSource& source)
{
    QList<BackupSource> remaining = m_customSources;
    remaining.removeIf([id = source.id](const BackupSource& candidate) { return candidate.id == id; });
    setCustomSources(remaining);
}

void AppState::pickCustomFolder()
{
    const FolderChooserRequest request{
        .message = tr("Select folders to protect."),
        .prompt = tr("Add Folder"),
        .allowsMultipleSelection = true,
    };
    // The chooser outlives the state, and so may its answer.
    m_services.folderChooser.chooseFolders(request, [state = QPointer(this)](const QList<FileURL>& urls) {
        for (const FileURL& url : urls) {
            if (state)
                state->addCustomSource(url);
        }
    });
}

void AppState::pickDestination()
{
    const FolderChooserRequest request{
        .message = tr("Select a folder or external drive to store your backups."),
        .prompt = tr("Choose Backup Destination"),
        .canCreateDirectories = true,
    };
    m_services.folderChooser.chooseFolders(request, [state = QPointer(this)](const QList<FileURL>& urls) {
        if (state && !urls.isEmpty())
            state->setSelectedDestination(BackupDestination{QUuid::createUuid(), urls.first()});
    });
}

void AppState::resetToDefaults()
{
    enableRecommendedFolders(enabledNames(defaultRecommendedFolders()));
    setCustomSources({});
}

} // namespace keelbright

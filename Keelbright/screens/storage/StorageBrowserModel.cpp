#include "Keelbright/screens/storage/StorageBrowserModel.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/FolderChooser.h"
#include "Keelbright/state/NotificationCenter.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/storage/LargestFilesScanner.h"

#include <QCoreApplication>
#include <QPointer>

namespace keelbright {

const QList<StorageBrowserModel::ViewMode>& StorageBrowserModel::allViewModes()
{
    static const QList<ViewMode> modes{ViewMode::list, ViewMode::treemap, ViewMode::largest};
    return modes;
}

const QList<StorageBrowserModel::SortOrder>& StorageBrowserModel::allSortOrders()
{
    static const QList<SortOrder> orders{SortOrder::size, SortOrder::name};
    return orders;
}

QString StorageBrowserModel::rawValue(ViewMode mode)
{
    switch (mode) {
    case ViewMode::list:
        return QStringLiteral(QT_TRANSLATE_NOOP("StorageBrowserView", "List"));
    case ViewMode::treemap:
        return QStringLiteral(QT_TRANSLATE_NOOP("StorageBrowserView", "Treemap"));
    case ViewMode::largest:
        return QStringLiteral(QT_TRANSLATE_NOOP("StorageBrowserView", "Largest Files"));
    }
    Q_UNREACHABLE();
}

QString StorageBrowserModel::rawValue(SortOrder order)
{
    switch (order) {
    case SortOrder::size:
        return QStringLiteral(QT_TRANSLATE_NOOP("StorageBrowserView", "Size"));
    case SortOrder::name:
        return QStringLiteral(QT_TRANSLATE_NOOP("StorageBrowserView", "Name"));
    }
    Q_UNREACHABLE();
}

StorageBrowserModel::StorageBrowserModel(AppState& state, QObject* parent)
    : QObject(parent)
    , m_state(state)
{}

void StorageBrowserModel::setPendingDelete(const std::optional<FolderSizeNode>& node)
{
    m_pendingDelete = node;
    Q_EMIT changed();
}

void StorageBrowserModel::setSortOrder(SortOrder order)
{
    m_sortOrder = order;
    Q_EMIT changed();
}

void StorageBrowserModel::setViewMode(ViewMode mode)
{
    m_viewMode = mode;
    Q_EMIT changed();
    if (mode == ViewMode::largest)
        loadLargestFiles();
}

std::optional<FileURL> StorageBrowserModel::currentURL() const
{
    return m_stack.isEmpty() ? std::nullopt : std::optional(m_stack.last().url);
}

QList<FolderSizeNode> StorageBrowserModel::currentNodes() const
{
    return m_stack.isEmpty() ? QList<FolderSizeNode>() : m_stack.last().nodes;
}

QList<FolderSizeNode> StorageBrowserModel::sortedNodes() const
{
    if (m_stack.isEmpty() || m_sortOrder == SortOrder::size)
        return currentNodes();
    const StorageLevel& level = m_stack.last();
    QList<FolderSizeNode> sorted;
    sorted.reserve(level.nodes.size());
    for (const qsizetype index : level.nameOrder)
        sorted.append(level.nodes.at(index));
    return sorted;
}

qint64 StorageBrowserModel::currentBytes() const
{
    return m_stack.isEmpty() ? 0 : m_stack.last().totalBytes;
}

void StorageBrowserModel::navigate(const FileURL& to)
{
    m_stack.clear();
    m_viewMode = ViewMode::list;
    m_largestFiles.clear();
    drillIn({
        .id = QUuid::createUuid(),
        .name = to.lastPathComponent(),
        .url = to,
        .totalBytes = 0,
        .isDirectory = true,
    });
}

void StorageBrowserModel::drillIn(const FolderSizeNode& node)
{
    m_isScanning = true;
    m_largestFiles.clear();
    Q_EMIT changed();
    measure(node.url);
}

void StorageBrowserModel::measure(const FileURL& url)
{
    const auto walk = [url] { return measureLevel(url); };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, walk), this,
            [this](const StorageLevel& level) {
                m_stack.append(level);
                m_isScanning = false;
                Q_EMIT changed();
            });
}

void StorageBrowserModel::goBack()
{
    goTo(m_stack.size() - 2);
}

void StorageBrowserModel::goTo(qsizetype level)
{
    if (level < 0 || level >= m_stack.size())
        return;
    m_stack.resize(level + 1);
    Q_EMIT changed();
}

void StorageBrowserModel::measureAgain()
{
    // The level that is being measured will be the last one.
    if (!m_isScanning)
        replaceLastLevel();
}

void StorageBrowserModel::replaceLastLevel()
{
    if (m_stack.isEmpty())
        return;
    const FileURL url = m_stack.takeLast().url;
    m_isScanning = true;
    Q_EMIT changed();
    measure(url);
}

void StorageBrowserModel::trash(const FolderSizeNode& node)
{
    // The new measurement shows whether it is still there.
    if (const auto trashed = FileManager::defaultManager().trashItem(node.url))
        m_state.undo().remember(TrashedItems{{*trashed}});
    setPendingDelete(std::nullopt);
    m_shortcuts.lookUp();
    replaceLastLevel();
}

void StorageBrowserModel::loadLargestFiles()
{
    const std::optional<FileURL> root = currentURL();
    if (!root)
        return;
    m_isLoadingLargest = true;
    m_largestFiles.clear();
    Q_EMIT changed();
    // A walk that is given up has an incomplete result.
    const std::shared_ptr<const Cancellation> cancellation = m_largestWalk.begin();
    const auto walk = [url = *root, cancellation] {
        return LargestFilesScanner::scan(url, largestFilesLimit, *cancellation);
    };
    deliver(TaskPools::runApart(TaskPools::Priority::utility, walk), this,
            [this, cancellation](const QList<LargeFileItem>& files) {
                if (cancellation->isCancelled())
                    return;
                m_largestFiles = files;
                m_isLoadingLargest = false;
                Q_EMIT changed();
            });
}

void StorageBrowserModel::organiseCurrentFolder(const FileURL& folder)
{
    // The first step may destroy the screen that owns the reference.
    const QVariant kept = QVariant::fromValue(folder);
    m_state.setSelectedScreen(Screen::organizer);
    NotificationCenter::defaultCenter().post(organizeFolderNotification, kept);
}

bool StorageBrowserModel::addToBackup(const FolderSizeNode& node)
{
    const qsizetype before = m_state.customSources().size();
    m_state.addCustomSource(node.url);
    return m_state.customSources().size() > before;
}

void StorageBrowserModel::pickFolder()
{
    const FolderChooserRequest request{
        .message = QCoreApplication::translate("StorageBrowserView", "Choose a folder to inspect."),
        .prompt = QCoreApplication::translate("StorageBrowserView", "Browse"),
    };
    // The chooser may stay open for longer than the screen does.
    m_state.services().folderChooser.chooseFolders(request,
                                                   [model = QPointer(this)](const QList<FileURL>& urls) {
                                                       if (model && !urls.isEmpty())
                                                           model->navigate(urls.first());
                                                   });
}

} // namespace keelbright

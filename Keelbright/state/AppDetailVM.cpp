#include "Keelbright/state/AppDetailVM.h"

#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/apps/AppLeftoversScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/records/ActivityStore.h"

#include <memory>
#include <utility>

namespace keelbright {

namespace {

/// What can't be moved stays where it is, without a message.
void moveToTrash(const FileURL& url, TrashedItems& moved)
{
    if (const auto trashed = FileManager::defaultManager().trashItem(url))
        moved.items.append(*trashed);
}

TrashedItems moveApplicationToTrash(const FileURL& bundle)
{
    TrashedItems moved;
    moveToTrash(bundle, moved);
    moved.isRemoval = true;
    return moved;
}

} // namespace

AppDetailVM::AppDetailVM(AppInfo app, ActivityStore& activityStore, AppLookup lookup, Clock clock,
                         QObject* parent)
    : QObject(parent)
    , m_app(std::move(app))
    , m_activityStore(activityStore)
    , m_lookup(std::move(lookup))
    , m_clock(std::move(clock))
{}

AppDetailVM::~AppDetailVM()
{
    m_itunesRequest.cancel();
}

qint64 AppDetailVM::totalLeftoverBytes() const
{
    return sumOfBytes(m_leftovers, &AppLeftover::sizeBytes);
}

void AppDetailVM::setIsLoadingLeftovers(bool isLoading)
{
    m_isLoadingLeftovers = isLoading;
    Q_EMIT isLoadingLeftoversChanged();
}

void AppDetailVM::loadLeftovers()
{
    setIsLoadingLeftovers(true);
    // If two searches are under way, only the later one shows its result.
    const std::shared_ptr<const Cancellation> cancellation = m_leftoversSearch.begin();
    const auto search = [bundleID = m_app.bundleID, name = m_app.name, cancellation] {
        return AppLeftoversScanner::scan(bundleID, name, *cancellation);
    };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, search), this,
            [this, cancellation](const QList<AppLeftover>& found) {
                if (cancellation->isCancelled())
                    return; // incomplete
                m_leftovers = found;
                Q_EMIT leftoversChanged();
                setIsLoadingLeftovers(false);
            });
}

void AppDetailVM::fetchDescription()
{
    m_isLoadingiTunes = true;
    Q_EMIT itunesChanged();
    m_itunesRequest = m_lookup(m_app.name);
    deliver(m_itunesRequest, this, [this](const std::optional<iTunesAppInfo>& found) {
        m_itunesInfo = found;
        m_itunesLookedUp = true;
        m_isLoadingiTunes = false;
        Q_EMIT itunesChanged();
    });
}

void AppDetailVM::removeApp()
{
    TrashedItems moved = moveApplicationToTrash(m_app.url);
    const qint64 bytes = totalLeftoverBytes();
    const qsizetype count = m_leftovers.size();
    for (const AppLeftover& leftover : m_leftovers)
        moveToTrash(leftover.url, moved);
    const char* detail = count == 1 ? StoredTexts::appAndFileTrashed : StoredTexts::appAndFilesTrashed;
    logRemoval(StoredTexts::appRemoved, StoredTexts::stored(detail, {QString::number(count)}), bytes,
               count + 1);
    Q_EMIT trashed(moved);
    Q_EMIT removed(m_app);
}

void AppDetailVM::removeAppOnly()
{
    const TrashedItems moved = moveApplicationToTrash(m_app.url);
    logRemoval(StoredTexts::appRemoved, StoredTexts::stored(StoredTexts::appTrashed), 0, 1);
    Q_EMIT trashed(moved);
    Q_EMIT removed(m_app);
}

void AppDetailVM::removeFilesOnly()
{
    const qint64 bytes = totalLeftoverBytes();
    const qsizetype count = m_leftovers.size();
    if (count == 0)
        return;
    TrashedItems moved;
    for (const AppLeftover& leftover : m_leftovers)
        moveToTrash(leftover.url, moved);
    const char* detail = count == 1 ? StoredTexts::appFileTrashed : StoredTexts::appFilesTrashed;
    logRemoval(StoredTexts::appFilesRemoved, StoredTexts::stored(detail, {QString::number(count)}), bytes,
               count);
    Q_EMIT trashed(moved);
    loadLeftovers();
}

void AppDetailVM::logRemoval(const char* title, const QString& detail, qint64 bytes, qint64 items) const
{
    m_activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = m_clock(),
        .kind = ActivityEntry::Kind::appRemove,
        .title = StoredTexts::stored(title, {m_app.name}),
        .detail = detail,
        .bytesAffected = bytes,
        .itemCount = items,
    });
}

} // namespace keelbright

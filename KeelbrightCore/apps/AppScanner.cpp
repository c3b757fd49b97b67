#include "KeelbrightCore/apps/AppScanner.h"

#include "KeelbrightCore/apps/LinuxApps.h"
#include "KeelbrightCore/apps/ScanWork.h"
#include "KeelbrightCore/apps/SpotlightMetadata.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/formats/PropertyList.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QMutex>
#include <QPromise>
#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using AppScanner::SpotlightMeta;
using AppScanner::spotlightMetadata;
using AppScanner::startStep;

constexpr qsizetype workWidth = 32;

/// Does a part of a scan; where memory runs out for it, the scan goes on without it.
template <typename Part> void asFarAsMemoryAllows(Part part)
{
    try {
        part();
    } catch (const std::bad_alloc&) {
        qCDebug(appsLog) << "not enough memory for a part of a scan";
    }
}

/// Paths without links. Not a hash of Qt's, which ends the program where memory runs out for it.
using SeenPaths = std::set<QByteArray>;

/// Adds the bundles of a root; of several that links lead to, the first one found.
void addBundles(const FileURL& root, SeenPaths& seen, QList<FileURL>& bundles)
{
    const FileManager& fileManager = FileManager::defaultManager();
    const auto entries = fileManager.contentsOfDirectory(root, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!entries)
        return;
    for (const DirectoryEntry& entry : *entries) {
        if (pathExtensionOf(entry.url.nativeLastPathComponent()) != "app")
            continue;
        if (seen.insert(fileManager.resolvingSymlinks(entry.url).nativePath()).second)
            bundles.append(entry.url);
    }
}

/// The bundles of all roots.
QList<FileURL> installedBundles()
{
    QList<FileURL> bundles;
    SeenPaths seen;
    asFarAsMemoryAllows([&] {
        for (const FileURL& root : MachinePlaces(FileManager::defaultManager()).bundleFolders())
            asFarAsMemoryAllows([&] { addBundles(root, seen, bundles); });
    });
    return bundles;
}

/// Nothing where there is no such key or its value is no text.
std::optional<QString> text(const QVariantMap& values, const QString& key)
{
    const QVariant value = values.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

QString nameWithoutExtension(const FileURL& url)
{
    QByteArray name = url.nativeLastPathComponent();
    if (const qsizetype extension = pathExtensionOf(name).size(); extension > 0)
        name.chop(extension + 1);
    return QString::fromUtf8(name);
}

/// All but what the metadata index knows; nothing for what has no readable property list or no
/// identifier in it.
std::optional<AppFacts> factsOf(const FileURL& bundle)
{
    const auto list = PropertyList::dictionaryAt(bundle.appending(u"Contents/Info.plist"_s));
    if (!list)
        return std::nullopt;
    const std::optional<QString> bundleID = text(*list, u"CFBundleIdentifier"_s);
    if (!bundleID)
        return std::nullopt;
    std::optional<QString> name = text(*list, u"CFBundleDisplayName"_s);
    if (!name)
        name = text(*list, u"CFBundleName"_s);
    return AppFacts{.name = name.value_or(nameWithoutExtension(bundle)),
                    .bundleID = *bundleID,
                    .url = bundle,
                    .version = text(*list, u"CFBundleShortVersionString"_s).value_or(QString())};
}

bool comesBefore(const AppInfo& a, const AppInfo& b)
{
    const int priorityOfA = sortPriority(a.usageCategory);
    const int priorityOfB = sortPriority(b.usageCategory);
    // An absent date is less than any other.
    return priorityOfA != priorityOfB ? priorityOfA < priorityOfB : a.lastUsedDate < b.lastUsedDate;
}

/// One scan under way. Its steps own it together. Each of its lanes is one application in work: it
/// takes the next one when the tool has answered for the one before, and holds no thread in between.
class Scan : public std::enable_shared_from_this<Scan>
{
public:
    explicit Scan(Clock clock)
        : m_clock(std::move(clock))
    {}

    QFuture<QList<AppInfo>> start()
    {
        m_promise.start();
        startStep([scan = shared_from_this()] { scan->discover(); });
        return m_promise.future();
    }

private:
    void discover()
    {
        bool isMac = true;
        asFarAsMemoryAllows([&] { isMac = MachinePlaces(FileManager::defaultManager()).isMac(); });
        if (!isMac) {
            asFarAsMemoryAllows([this] { addLinuxApps(); });
            finish();
            return;
        }
        m_bundles = installedBundles();
        const qsizetype lanes = std::min(workWidth, m_bundles.size());
        m_lanes = lanes;
        if (lanes == 0)
            finish();
        for (qsizetype i = 0; i < lanes; ++i)
            waitingForMemory([this] { startStep([scan = shared_from_this()] { scan->takeNext(); }); });
    }

    void addLinuxApps()
    {
        for (AppFacts& facts : LinuxApps::installed(FileManager::defaultManager()))
            m_apps.append(AppInfo(std::move(facts), m_clock()));
    }

    void takeNext()
    {
        for (;;) {
            const qsizetype next = m_nextBundle++;
            if (next >= m_bundles.size() || m_promise.isCanceled())
                break;
            bool isAsked = false;
            asFarAsMemoryAllows([&] { isAsked = ask(m_bundles.at(next)); });
            if (isAsked)
                return;
        }
        if (--m_lanes == 0)
            finish();
    }

    /// Whether the tool is asked about a bundle, and the lane goes on when it has answered.
    [[nodiscard]] bool ask(const FileURL& bundle)
    {
        const std::optional<AppFacts> facts = factsOf(bundle);
        if (!facts)
            return false;
        spotlightMetadata(bundle, [scan = shared_from_this(), known = *facts](const SpotlightMeta& metadata) {
            asFarAsMemoryAllows([&] { scan->add(known, metadata); });
            scan->takeNext();
        });
        return true;
    }

    void add(AppFacts facts, const SpotlightMeta& metadata)
    {
        facts.lastUsedDate = metadata.lastUsed;
        facts.useCount = metadata.useCount;
        facts.dateAdded = metadata.dateAdded;
        const AppInfo app(std::move(facts), m_clock());
        const QMutexLocker locker(&m_mutex);
        m_apps.append(app);
    }

    void finish()
    {
        std::ranges::stable_sort(m_apps, comesBefore);
        // Without an index Qt would count up also where an attempt finds no memory.
        waitingForMemory([this] { m_promise.addResult(m_apps, 0); });
        m_promise.finish();
    }

    const TaskPools::WorkWithoutThread m_work;
    const Clock m_clock;
    QPromise<QList<AppInfo>> m_promise;
    QList<FileURL> m_bundles; ///< not changed any more once there are lanes
    std::atomic<qsizetype> m_nextBundle = 0;
    std::atomic<qsizetype> m_lanes = 0; ///< that still take applications
    QMutex m_mutex;                     ///< for `m_apps` while there are lanes
    QList<AppInfo> m_apps;
};

} // namespace

QFuture<QList<AppInfo>> AppScanner::scan(Clock clock)
{
    return std::make_shared<Scan>(std::move(clock))->start();
}

} // namespace keelbright

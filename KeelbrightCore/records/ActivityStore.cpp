#include "KeelbrightCore/records/ActivityStore.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// In bytes: many times what the maximum of entries takes. A larger file is no log.
constexpr qint64 maximumSize = qint64{16'000'000};

/// The file has no quoting, so no text may hold a comma.
QString withoutCommas(QString text)
{
    return text.replace(u',', u';');
}

QString csvLine(const ActivityEntry& entry)
{
    const QStringList columns{
        DateFormatter::iso8601(entry.timestamp),
        ActivityEntry::rawValue(entry.kind),
        withoutCommas(entry.title),
        withoutCommas(entry.detail),
        QString::number(entry.itemCount),
        entry.formattedBytes(),
    };
    return columns.join(u',');
}

} // namespace

ActivityStore& ActivityStore::shared()
{
    static ActivityStore store(FileManager::defaultManager().applicationSupportDirectory());
    return store;
}

ActivityStore::ActivityStore(const FileURL& applicationSupport)
{
    const FileURL folder = applicationSupport.appending(u"Keelbright"_s);
    static_cast<void>(FileManager::defaultManager().createDirectory(folder));
    m_fileURL = folder.appending(u"activity.json"_s);
}

QList<ActivityEntry> ActivityStore::load() const
{
    const auto data = FileManager::defaultManager().contents(m_fileURL, maximumSize);
    if (!data)
        return {};
    const auto objects = decodeJsonArray(*data);
    if (!objects)
        return {};
    return recordsFromJson<ActivityEntry>(*objects).value_or(QList<ActivityEntry>());
}

void ActivityStore::append(const ActivityEntry& entry) const
{
    QList<ActivityEntry> entries = load();
    entries.prepend(entry);
    if (entries.size() > maxEntries)
        entries.resize(maxEntries);
    save(entries);
}

void ActivityStore::clear() const
{
    save({});
}

void ActivityStore::save(const QList<ActivityEntry>& entries) const
{
    QJsonArray array;
    for (const ActivityEntry& entry : entries)
        array.append(entry.toJson());
    // The logged action is already done, so a log that can't be written is no failure of it.
    static_cast<void>(FileManager::defaultManager().writeAtomically(
        m_fileURL, QJsonDocument(array).toJson(QJsonDocument::Indented)));
}

QString ActivityStore::exportCSV() const
{
    QStringList lines{u"Timestamp,Type,Title,Detail,Items,Size"_s};
    for (const ActivityEntry& entry : load())
        lines.append(csvLine(entry));
    return lines.join(u'\n');
}

} // namespace keelbright

#include "KeelbrightCore/check/Originals.h"

#include <ranges>

namespace keelbright {

namespace {

/// By how much a drive may have rounded a time down, in nanoseconds: FAT to two seconds, exFAT to a
/// hundredth of a second, NTFS to a ten-millionth.
qint64 inexactness(qint64 time)
{
    constexpr qint64 second = 1'000'000'000;
    if (time % second == 0)
        return 2 * second;
    constexpr qint64 hundredth = second / 100;
    if (time % hundredth == 0)
        return hundredth;
    return time % 100 == 0 ? 100 : 0;
}

} // namespace

Originals::Originals(const QList<BackupSource>& sources)
{
    for (const BackupSource& source : sources) {
        if (!source.isEnabled)
            continue;
        auto tree = ReadOnlyTree::open(source.url);
        if (!tree) {
            m_failures.append({source.url, tree.error()});
            continue;
        }
        const QByteArray name = source.url.nativeLastPathComponent();
        m_sources.push_back({name == "/" ? QByteArray() : name, std::move(*tree)});
    }
}

QList<Original> Originals::of(const QByteArray& folder, const QByteArray& name) const
{
    const qsizetype slash = folder.indexOf('/');
    const QByteArray first = slash < 0 ? folder : folder.first(slash);
    const QByteArray below = slash < 0 ? QByteArray() : folder.sliced(slash + 1);
    QList<Original> originals;
    for (const Source& source : std::views::reverse(m_sources)) {
        if (source.name.isEmpty())
            originals.append({source.tree.get(), folder, name});
        else if (source.name == first)
            originals.append({source.tree.get(), below, name});
    }
    return originals;
}

bool isChangedSince(const ItemStatus& original, const ItemStatus& copy)
{
    if (original.type != copy.type || original.size != copy.size)
        return true;
    const qint64 later = original.modification - copy.modification;
    if (later > inexactness(copy.modification))
        return true;
    // An older file that was put in the place of the original: the time of its last change says when.
    return later < 0 && original.change > copy.change;
}

} // namespace keelbright

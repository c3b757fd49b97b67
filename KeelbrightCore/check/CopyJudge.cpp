#include "KeelbrightCore/check/CopyJudge.h"

#include "KeelbrightCore/check/CopyReading.h"

#include <utility>

namespace keelbright {

namespace {

using Result = ContentComparison::Result;

bool isUnchanged(const ItemStatus& before, const std::expected<ItemStatus, int>& after)
{
    return after && after->size == before.size && after->modification == before.modification &&
           after->change == before.change;
}

/// Whether what follows from a further original is to count instead.
bool isBetter(CopyVerdict verdict, CopyVerdict before)
{
    return before == CopyVerdict::onlyOnDrive || verdict == CopyVerdict::same ||
           (verdict == CopyVerdict::changedSince && before != CopyVerdict::same);
}

} // namespace

CopyJudge::CopyJudge(FileURL root, ReadOnlyTree& copies, const Cancellation& cancellation)
    : m_root(std::move(root))
    , m_copies(copies)
    , m_cancellation(cancellation)
{}

CheckFinding CopyJudge::finding(const CheckedItem& item, CopyVerdict verdict) const
{
    return {.verdict = verdict, .item = m_root.appendingNative(item.path()), .error = {}};
}

CheckFinding CopyJudge::unreadable(const CheckedItem& item, int code, CopyVerdict verdict) const
{
    CheckFinding result = finding(item, verdict);
    result.error = FileError::fromCode(FileError::Operation::read, QString::fromUtf8(item.name), code);
    return result;
}

CheckFinding CopyJudge::endsEarly(const CheckedItem& item, CopyVerdict verdict) const
{
    CheckFinding result = finding(item, verdict);
    result.error =
        FileError{FileError::Operation::read, QString::fromUtf8(item.name), FileError::Reason::endsEarly};
    return result;
}

CheckFinding CopyJudge::withoutOriginal(const CheckedItem& item, int code) const
{
    return isMissing(code) ? finding(item, CopyVerdict::onlyOnDrive)
                           : unreadable(item, code, CopyVerdict::originalUnreadable);
}

CheckFinding CopyJudge::fault(const CheckedItem& item, CheckFinding::Reason reason) const
{
    CheckFinding result = finding(item, CopyVerdict::differs);
    result.reason = reason;
    return result;
}

std::optional<ContentComparison> CopyJudge::beginComparison(const QList<Original>& originals,
                                                            const ItemStatus& copy)
{
    if (originals.isEmpty())
        return std::nullopt;
    const Original& first = originals.first();
    auto file = first.tree->openFile(first.folder, first.name);
    if (!file || file->status().size != copy.size)
        return std::nullopt;
    return ContentComparison(std::move(*file), m_memory);
}

CheckFinding CopyJudge::judgeFile(const CheckedItem& item, const ItemStatus& copy,
                                  const QList<Original>& originals, const ContentComparison* compared)
{
    CheckFinding result = finding(item, CopyVerdict::onlyOnDrive);
    for (const Original& original : originals) {
        const CheckFinding next = judge(item, copy, original, std::exchange(compared, nullptr));
        if (isBetter(next.verdict, result.verdict))
            result = next;
        if (result.verdict == CopyVerdict::same)
            break;
    }
    return result;
}

CheckFinding CopyJudge::judge(const CheckedItem& item, const ItemStatus& copy, const Original& original,
                              const ContentComparison* compared)
{
    const auto status = compared ? std::expected<ItemStatus, int>(compared->original().status())
                                 : original.tree->status(original.folder, original.name);
    if (!status)
        return withoutOriginal(item, status.error());
    if (status->type != copy.type || status->size != copy.size)
        return finding(item, CopyVerdict::changedSince);
    if (compared && compared->result() == Result::same)
        return finding(item, CopyVerdict::same);
    if (compared && compared->result() == Result::differs && isChangedSince(*status, copy))
        return finding(item, CopyVerdict::changedSince);
    return lookAgain(item, original, compared);
}

CheckFinding CopyJudge::lookAgain(const CheckedItem& item, const Original& original,
                                  const ContentComparison* compared)
{
    constexpr int maximumLooks = 3;
    for (int look = 0; look < maximumLooks; ++look) {
        if (const auto result = lookAgainOnce(item, original, compared))
            return *result;
    }
    return finding(item, CopyVerdict::changedSince); // it is written to all the time
}

std::optional<CheckFinding> CopyJudge::lookAgainOnce(const CheckedItem& item, const Original& original,
                                                     const ContentComparison* compared)
{
    auto source = original.tree->openFile(original.folder, original.name);
    if (!source)
        return withoutOriginal(item, source.error());
    auto copy = m_copies.openFile(item.folder, item.name);
    if (!copy)
        return unreadable(item, copy.error());
    source->makeChangesVisible();
    const ItemStatus before = source->currentStatus().value_or(source->status());
    if (before.size != copy->status().size)
        return finding(item, CopyVerdict::changedSince);
    ContentComparison comparison(std::move(*source), m_memory);
    const auto result = compareAgain(comparison, *copy, m_cancellation);
    if (!result)
        return unreadable(item, result.error());
    if (*result == Result::originalUnreadable)
        return comparison.code() == 0 ? endsEarly(item, CopyVerdict::originalUnreadable)
                                      : unreadable(item, comparison.code(), CopyVerdict::originalUnreadable);
    if (!isUnchanged(before, comparison.original().currentStatus()) ||
        !isUnchanged(copy->status(), copy->currentStatus()))
        return std::nullopt;
    if (*result == Result::differs)
        return isChangedSince(before, copy->status()) ? finding(item, CopyVerdict::changedSince)
                                                      : fault(item, CheckFinding::Reason::differsFromSource);
    // The same now: where it was not before, and nothing was written to either, one of them was read wrong.
    const bool hasDiffered = compared && compared->result() == Result::differs;
    return hasDiffered && isUnchanged(before, compared->original().status())
               ? fault(item, CheckFinding::Reason::readInTwoWays)
               : finding(item, CopyVerdict::same);
}

CheckFinding CopyJudge::judgeLink(const CheckedItem& item, const ItemStatus& copy,
                                  const QList<Original>& originals)
{
    CheckFinding result = finding(item, CopyVerdict::onlyOnDrive);
    for (const Original& original : originals) {
        const CheckFinding next = judgeLink(item, copy, original);
        if (isBetter(next.verdict, result.verdict))
            result = next;
    }
    return result;
}

CheckFinding CopyJudge::judgeLink(const CheckedItem& item, const ItemStatus& copy, const Original& original)
{
    const auto status = original.tree->status(original.folder, original.name);
    if (!status)
        return withoutOriginal(item, status.error());
    if (status->type != EntryType::symbolicLink)
        return finding(item, CopyVerdict::changedSince);
    const auto source = original.tree->linkTarget(original.folder, original.name);
    if (!source)
        return unreadable(item, source.error(), CopyVerdict::originalUnreadable);
    const auto target = m_copies.linkTarget(item.folder, item.name);
    if (!target)
        return unreadable(item, target.error());
    if (*source == *target)
        return finding(item, CopyVerdict::same);
    // A link is never written to, only made: the copy has the time at which it was made.
    return status->modification > copy.modification ? finding(item, CopyVerdict::changedSince)
                                                    : fault(item, CheckFinding::Reason::differsFromSource);
}

} // namespace keelbright

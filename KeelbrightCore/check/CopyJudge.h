#pragma once

#include "KeelbrightCore/check/CheckReport.h"
#include "KeelbrightCore/check/ContentComparison.h"
#include "KeelbrightCore/check/Originals.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <optional>

namespace keelbright {

/// Says what has become of a copy, from what was read of it and of its original. Invents no fault: where the
/// two differ, it makes sure that neither is being written to. One thread at a time.
class CopyJudge
{
public:
    /// `copies` lies at `root`. All of them outlive this.
    CopyJudge(FileURL root, ReadOnlyTree& copies, const Cancellation& cancellation);

    /// Prepares the comparison with the likeliest original, where there is one of the same size. One at a
    /// time.
    [[nodiscard]] std::optional<ContentComparison> beginComparison(const QList<Original>& originals,
                                                                   const ItemStatus& copy);

    /// After all of the copy has been read; `compared` is null where it was compared with nothing.
    [[nodiscard]] CheckFinding judgeFile(const CheckedItem& item, const ItemStatus& copy,
                                         const QList<Original>& originals, const ContentComparison* compared);
    [[nodiscard]] CheckFinding judgeLink(const CheckedItem& item, const ItemStatus& copy,
                                         const QList<Original>& originals);

    [[nodiscard]] CheckFinding finding(const CheckedItem& item, CopyVerdict verdict) const;
    /// With the reason of the system.
    [[nodiscard]] CheckFinding unreadable(const CheckedItem& item, int code,
                                          CopyVerdict verdict = CopyVerdict::unreadable) const;
    /// For a file that ends before its size says so.
    [[nodiscard]] CheckFinding endsEarly(const CheckedItem& item,
                                         CopyVerdict verdict = CopyVerdict::unreadable) const;

private:
    [[nodiscard]] CheckFinding withoutOriginal(const CheckedItem& item, int code) const;
    [[nodiscard]] CheckFinding fault(const CheckedItem& item, CheckFinding::Reason reason) const;
    [[nodiscard]] CheckFinding judge(const CheckedItem& item, const ItemStatus& copy,
                                     const Original& original, const ContentComparison* compared);
    [[nodiscard]] CheckFinding judgeLink(const CheckedItem& item, const ItemStatus& copy,
                                         const Original& original);
    /// Reads both once more, until neither is written to meanwhile.
    [[nodiscard]] CheckFinding lookAgain(const CheckedItem& item, const Original& original,
                                         const ContentComparison* compared);
    /// Nothing where one of the two was written to.
    [[nodiscard]] std::optional<CheckFinding> lookAgainOnce(const CheckedItem& item, const Original& original,
                                                            const ContentComparison* compared);

    FileURL m_root;
    ReadOnlyTree& m_copies;
    const Cancellation& m_cancellation;
    PieceBuffer m_memory;
};

} // namespace keelbright

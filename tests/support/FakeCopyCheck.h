#pragma once

#include "KeelbrightCore/check/CopyCheck.h"

#include <QList>
#include <QPromise>

namespace keelbright::testing {

/// Checks of copies that read no drive: each goes on until the test ends it. Main thread.
class FakeCopyCheck
{
public:
    /// For `AppServices::startCopyCheck`; this outlives the state.
    [[nodiscard]] auto starter()
    {
        return [this](const CheckJob& job, const std::shared_ptr<CheckProgress>& progress,
                      const std::shared_ptr<const Cancellation>& cancellation) {
            jobs.append(job);
            m_progress = progress;
            m_cancellation = cancellation;
            m_promise = QPromise<CheckReport>();
            m_promise.start();
            return m_promise.future();
        };
    }

    [[nodiscard]] CheckProgress& progress() { return *m_progress; }

    [[nodiscard]] const Cancellation& cancellation() const { return *m_cancellation; }

    /// Ends the last check that was started.
    void end(const CheckReport& report)
    {
        m_promise.addResult(report);
        m_promise.finish();
    }

    QList<CheckJob> jobs; ///< so far, in order

private:
    std::shared_ptr<CheckProgress> m_progress;
    std::shared_ptr<const Cancellation> m_cancellation;
    QPromise<CheckReport> m_promise;
};

/// The report of a whole check of that many copies on "Anchor", all the same.
[[nodiscard]] inline CheckReport sampleCheck(qint64 copies)
{
    CheckReport report;
    report.deviceFolder = FileURL::fromPath(QStringLiteral("/Volumes/Anchor/Keelbright/Mira"));
    report.personalFiles = report.deviceFolder.appending(QStringLiteral("Latest/Personal Files"));
    report.copies = copies;
    report.checked = copies;
    report.add(CopyVerdict::same, copies);
    return report;
}

/// Adds a damaged copy, in the place of one that was the same.
inline void addDamaged(CheckReport& report, const QString& place)
{
    report.add(CopyVerdict::same, -1);
    report.add(CheckFinding{.verdict = CopyVerdict::differs,
                            .item = report.personalFiles.appending(place),
                            .reason = CheckFinding::Reason::differsFromSource,
                            .error = {}});
}

/// Adds a copy that can't be read, in the place of one that was the same.
inline void addUnreadable(CheckReport& report, const QString& place)
{
    report.add(CopyVerdict::same, -1);
    const FileURL item = report.personalFiles.appending(place);
    report.add(CheckFinding{
        .verdict = CopyVerdict::unreadable,
        .item = item,
        .error = FileError::fromCode(FileError::Operation::read, item.lastPathComponent(), EIO)});
}

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/platform/files/CopyDestination.h"

#include <QByteArrayList>
#include <QMutex>
#include <functional>
#include <utility>

namespace keelbright::testing {

/// What happens to copies, one line for each step; any thread.
class CopyRecord
{
public:
    void append(const QByteArray& line)
    {
        const QMutexLocker locker(&m_mutex);
        m_lines.append(line);
    }

    [[nodiscard]] QByteArrayList lines() const
    {
        const QMutexLocker locker(&m_mutex);
        QByteArrayList lines = m_lines;
        lines.detach(); // what is shared would be read without the lock
        return lines;
    }

    /// The names in the lines that begin with this step, in their order.
    [[nodiscard]] QByteArrayList names(const QByteArray& step) const
    {
        QByteArrayList names;
        for (const QByteArray& line : lines()) {
            if (line.startsWith(step + ' '))
                names.append(line.sliced(step.size() + 1));
        }
        return names;
    }

private:
    mutable QMutex m_mutex;
    QByteArrayList m_lines;
};

/// A copy that only records that it is published or dropped.
class RecordedCopy : public PreparedCopy
{
public:
    RecordedCopy(QByteArray name, CopyRecord& record, qint64 size, std::expected<void, FileError> result = {})
        : m_name(std::move(name))
        , m_record(record)
        , m_size(size)
        , m_result(std::move(result))
    {}

    ~RecordedCopy() override
    {
        if (!m_isPublished)
            m_record.append("dropped " + m_name);
    }

    std::expected<void, FileError> flushBeforeReplacing() override
    {
        m_record.append("flushed " + m_name);
        return {};
    }

    std::expected<void, FileError> publish() override
    {
        m_isPublished = true;
        m_record.append("published " + m_name);
        return m_result;
    }

    [[nodiscard]] qint64 sourceSize() const override { return m_size; }

private:
    QByteArray m_name;
    CopyRecord& m_record;
    qint64 m_size;
    std::expected<void, FileError> m_result;
    bool m_isPublished = false;
};

using Preparing = std::function<std::expected<std::unique_ptr<PreparedCopy>, FileError>(
    const QByteArray& name, const Cancellation& cancellation)>;

/// Prepares by calling the test's function, on whatever thread.
class FakeCopyWorker : public CopyWorker
{
public:
    explicit FakeCopyWorker(Preparing preparing)
        : m_preparing(std::move(preparing))
    {}

    std::expected<std::unique_ptr<PreparedCopy>, FileError> prepare(const PlannedCopy& plan,
                                                                    const Cancellation& cancellation) override
    {
        return m_preparing(plan.name, cancellation);
    }

private:
    Preparing m_preparing;
};

/// A destination without a file system.
class FakeCopyDestination : public CopyDestination
{
public:
    FakeCopyDestination(qsizetype maximumPrepared, Preparing preparing)
        : m_maximumPrepared(maximumPrepared)
        , m_preparing(std::move(preparing))
    {}

    std::expected<void, FileError> enterFolder(QByteArrayView, const DirectoryEnumerator*) override
    {
        return {};
    }

    void setFilledFolderHandler(FilledFolderHandler) override {}

    void leaveFolders() override {}

    bool isOwnFolder(const DirectoryEnumerator&) const override { return false; }

    std::expected<PlannedCopy, FileError> plan(const DirectoryEnumerator& item) override
    {
        return PlannedCopy{nullptr, nullptr, item.name().toByteArray(), item.type()};
    }

    std::unique_ptr<CopyWorker> makeWorker() override
    {
        return std::make_unique<FakeCopyWorker>(m_preparing);
    }

    qsizetype maximumPrepared() override { return m_maximumPrepared; }

    std::expected<void, FileError> writeAtomically(const QByteArray&, const QByteArray&) override
    {
        return {};
    }

    bool isInPlace() override { return true; }

    std::expected<void, FileError> flush() override { return {}; }

private:
    qsizetype m_maximumPrepared;
    Preparing m_preparing;
};

} // namespace keelbright::testing

#pragma once

#include <QByteArray>
#include <atomic>
#include <mutex>

namespace keelbright {

/// How far a check is.
struct CheckProgressValues
{
    enum class Phase {
        counting,      ///< what there is to be read
        reading,       ///< the copies
        lookingForNew, ///< for originals without a copy
    };

    Phase phase = Phase::counting;
    qint64 files = 0; ///< all copies; 0 until they have been counted
    qint64 bytes = 0;
    qint64 checkedFiles = 0;
    qint64 readBytes = 0;
    qint64 faults = 0;
    QByteArray currentFile; ///< its name

    /// From 0 to 1, by bytes.
    [[nodiscard]] double fraction() const;
};

/// The progress of a check that is under way: the check writes it and the window reads it, neither waits for
/// the other. Any thread.
class CheckProgress
{
public:
    using Phase = CheckProgressValues::Phase;

    void setTotal(qint64 files, qint64 bytes);

    void setPhase(Phase phase) { m_phase = phase; }

    void beginFile(const QByteArray& name);

    void endFile() { ++m_checkedFiles; }

    void addBytes(qint64 count) { m_readBytes += count; }

    void addFault() { ++m_faults; }

    [[nodiscard]] CheckProgressValues values() const;

private:
    std::atomic<Phase> m_phase = Phase::counting;
    std::atomic<qint64> m_files = 0;
    std::atomic<qint64> m_bytes = 0;
    std::atomic<qint64> m_checkedFiles = 0;
    std::atomic<qint64> m_readBytes = 0;
    std::atomic<qint64> m_faults = 0;
    mutable std::mutex m_mutex; ///< for the name alone, and never held in a system call
    QByteArray m_currentFile;
};

} // namespace keelbright

#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/system/Subprocess.h"

#include <optional>
#include <sys/types.h>

namespace keelbright {

/// One running helper program: its process, its output so far and who waits for it. Waits for this
/// process alone, so that other children of the program keep their status and the signal for ended
/// children its handler. One thread at a time. Internal to the platform folder.
class RunningHelper
{
public:
    /// `output` is the reading end of its output.
    RunningHelper(QString name, pid_t process, FileDescriptor output, Subprocess::Receiver receive);

    /// Readable when there is output, and at its end; -1 once nothing more is read.
    [[nodiscard]] int output() const { return m_output.get(); }

    /// Readable from the helper's end on; -1 where the system has no such thing and `hasEnded` is to
    /// be asked again and again.
    [[nodiscard]] int endWatch() const { return m_endWatch.get(); }

    /// Reads a piece of what is there; kills a helper that has written too much.
    void read();
    /// Whether it has ended. All that it wrote has then been read.
    [[nodiscard]] bool hasEnded();
    /// Hands over the result of a helper that has ended.
    void deliver();

private:
    void readWhatIsThere();
    /// Appends up to `count` bytes; false at the end of the data.
    bool append(qsizetype count);
    void giveUpOutput();

    QString m_name;
    pid_t m_process;
    FileDescriptor m_output;
    FileDescriptor m_endWatch;
    Subprocess::Receiver m_receive;
    Subprocess::Result m_result;
    bool m_hasEnded = false;
    std::optional<int> m_status; ///< of `waitpid`; none where the system keeps none
};

} // namespace keelbright

#pragma once

#include "tests/support/TestMac.h"

#include <QProcess>

namespace keelbright::testing {

/// The program itself in a process of its own, on a made-up machine and without a display. Killed when
/// this goes.
class ProgramProcess
{
public:
    /// Starts it with these arguments, by the command of `launcher` if there is one.
    explicit ProgramProcess(const TestMac& mac, const QStringList& launcher = {},
                            const QStringList& arguments = {});
    ~ProgramProcess();
    ProgramProcess(const ProgramProcess&) = delete;
    ProgramProcess& operator=(const ProgramProcess&) = delete;

    /// Waits until it has loaded its settings; false if it ends before or takes a minute.
    [[nodiscard]] bool waitUntilLoaded();
    /// Waits until it has printed this line to one of its outputs; false as above.
    [[nodiscard]] bool waitForLine(const QByteArray& line);
    /// Waits for its end and gives the exit code; nothing if it crashed, was killed or does not end
    /// within a minute.
    [[nodiscard]] std::optional<int> waitForEnd();

    void sendSignal(int number) const;

    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }

    /// What it has printed to both outputs up to the last wait.
    [[nodiscard]] const QByteArray& output() const { return m_output; }

private:
    QProcess m_process;
    QByteArray m_output;
};

} // namespace keelbright::testing

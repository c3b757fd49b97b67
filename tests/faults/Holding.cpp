#include "tests/faults/Holding.h"

#include <QJsonDocument>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/uio.h>
#include <unistd.h>

namespace keelbright::testing {

void hold(const QList<pid_t>& threads)
{
    // For an unprivileged user only a parent may watch a process, unless the process allows others.
    ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY);
    for (const pid_t thread : threads)
        std::printf("%d ", static_cast<int>(thread));
    std::printf("\n");
    std::fflush(stdout);
    while (std::getchar() != '\n' && std::feof(stdin) == 0) {
    }
}

int printOutcome(const QJsonObject& outcome)
{
    // Not with `write`, which may be the call that fails.
    QByteArray line = QJsonDocument(outcome).toJson(QJsonDocument::Compact);
    const iovec vector{line.data(), static_cast<size_t>(line.size())};
    return ::writev(STDOUT_FILENO, &vector, 1) == line.size() ? 0 : 1;
}

} // namespace keelbright::testing

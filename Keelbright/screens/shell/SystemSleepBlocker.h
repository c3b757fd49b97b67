#pragma once

#include "Keelbright/state/SleepBlocker.h"

#include <QtGlobal>
#include <optional>

namespace keelbright {

/// Keeps the machine awake by the operating system's own promise, where it has one.
class SystemSleepBlocker : public SleepBlocker
{
public:
    SystemSleepBlocker() = default;
    ~SystemSleepBlocker() override;
    Q_DISABLE_COPY_MOVE(SystemSleepBlocker)

    void block(const QString& reason) override;
    void allow() override;

private:
    std::optional<quint32> m_assertion;
};

} // namespace keelbright

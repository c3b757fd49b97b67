#pragma once

#include "Keelbright/state/RemainingTime.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <QObject>
#include <QTimer>

namespace keelbright {

class BackupEngine;

/// How long the running backup still takes, measured while it runs, whatever screen is shown. Main thread.
class BackupTimeLeft : public QObject
{
    Q_OBJECT

public:
    /// The engine outlives it.
    BackupTimeLeft(BackupEngine& engine, SteadyClock clock, QObject* parent = nullptr);

    /// What the next run, or the one that has just started, is expected to copy. Without that, or with 0,
    /// there is no time to show.
    void expect(qint64 bytes);

    /// As it is shown; empty while it is not known, once the run is cancelled, and while none runs.
    [[nodiscard]] const QString& text() const { return m_text; }

    /// Measures once; called twice a second during a run.
    void measure();

Q_SIGNALS:
    /// The text has changed.
    void changed();

private:
    void followEngine();
    void setText(const QString& text);

    BackupEngine& m_engine;
    SteadyClock m_clock;
    QTimer m_looks;
    qint64 m_expectedBytes = 0;
    RemainingTime m_remaining;
    QString m_text;
};

} // namespace keelbright

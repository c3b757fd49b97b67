#include "Keelbright/state/BackupTimeLeft.h"

#include "KeelbrightCore/backup/BackupEngine.h"

#include <utility>

namespace keelbright {

namespace {

constexpr int lookInterval = 500; // milliseconds

} // namespace

BackupTimeLeft::BackupTimeLeft(BackupEngine& engine, SteadyClock clock, QObject* parent)
    : QObject(parent)
    , m_engine(engine)
    , m_clock(std::move(clock))
{
    m_looks.setInterval(lookInterval);
    connect(&m_looks, &QTimer::timeout, this, &BackupTimeLeft::measure);
    connect(&engine, &BackupEngine::isRunningChanged, this, &BackupTimeLeft::followEngine);
    connect(&engine, &BackupEngine::isCancelledChanged, this, &BackupTimeLeft::followEngine);
}

void BackupTimeLeft::expect(qint64 bytes)
{
    m_expectedBytes = bytes;
    m_remaining = {};
    setText({});
}

void BackupTimeLeft::followEngine()
{
    const bool isUnderWay = m_engine.isRunning() && !m_engine.isCancelled();
    if (isUnderWay && !m_looks.isActive()) {
        m_remaining = {};
        m_looks.start();
    } else if (!isUnderWay) {
        m_looks.stop();
        setText({});
    }
}

void BackupTimeLeft::measure()
{
    if (!m_looks.isActive())
        return;
    m_remaining.add(m_clock(), m_engine.progress().bytesCopied, m_expectedBytes);
    setText(m_remaining.text());
}

void BackupTimeLeft::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT changed();
}

} // namespace keelbright

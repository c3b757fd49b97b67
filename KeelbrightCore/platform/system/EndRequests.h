#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace keelbright {

/// Turns the system's requests to end (SIGTERM, SIGINT) into a Qt signal while it lives. One at a time;
/// main thread only.
///
/// Only the first request of a kind is caught: where the program does not come to its end, a second one
/// ends it at once. What the process was started to ignore stays ignored.
class EndRequests : public QObject
{
    Q_OBJECT

public:
    explicit EndRequests(QObject* parent = nullptr);
    ~EndRequests() override;
    Q_DISABLE_COPY_MOVE(EndRequests)

Q_SIGNALS:
    /// In the next turn of the event loop after the request.
    void received();

private:
    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace keelbright

#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>

namespace keelbright {

/// Calls `receive` with the result of a background operation on this thread, which is the owner's, in
/// a later turn of the event loop. Never calls it if the operation was cancelled or if the owner is
/// destroyed before; `QFuture::then` with an object can call it even then.
template <typename Result, typename Receive>
void deliver(const QFuture<Result>& future, QObject* owner, Receive receive)
{
    auto* watcher = new QFutureWatcher<Result>(owner);
    QObject::connect(watcher, &QFutureWatcherBase::finished, owner,
                     [watcher, receive = std::move(receive)]() mutable {
                         watcher->deleteLater();
                         if (!watcher->isCanceled())
                             receive(watcher->result());
                     });
    watcher->setFuture(future);
}

} // namespace keelbright

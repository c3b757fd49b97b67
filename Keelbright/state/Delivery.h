#pragma once

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>

namespace keelbright {

/// Hands the result of a background operation to `receive` on this thread, which is the owner's,
/// and never before the event loop has turned. Nothing happens where the operation was cancelled,
/// or where the owner has gone before, whichever thread is at work at that moment; `QFuture::then`
/// with an object can't promise the latter.
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

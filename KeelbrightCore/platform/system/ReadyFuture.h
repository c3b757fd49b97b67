#pragma once

#include <QFuture>
#include <QPromise>

namespace keelbright {

/// A future that has ended with this result. Unlike that of Qt, whose name differs between its versions, it
/// takes a list for one result.
template <typename Result> [[nodiscard]] QFuture<Result> readyFuture(const Result& result)
{
    QPromise<Result> promise;
    promise.start();
    promise.addResult(result);
    promise.finish();
    return promise.future();
}

} // namespace keelbright

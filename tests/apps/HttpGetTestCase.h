#pragma once

#include "KeelbrightCore/apps/HttpGet.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "tests/support/EngineRun.h"
#include "tests/support/LoopbackServer.h"

#include <QCoreApplication>
#include <QFuture>
#include <QNetworkProxy>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// Requests to servers of this machine, on threads of their own while the event loop turns.
class HttpGetTestCase : public ::testing::Test
{
protected:
    using Body = std::optional<QByteArray>;
    static constexpr qint64 maximumBody = 1'000'000;
    /// Longer than any test waits.
    static constexpr std::chrono::milliseconds noDeadline = std::chrono::hours(1);

    HttpGetTestCase()
    {
        // A proxy that the machine is set to would stand between the test and its server.
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

    [[nodiscard]] std::shared_ptr<HttpGet> request(const QString& url,
                                                   std::chrono::milliseconds deadline = noDeadline) const
    {
        return std::make_shared<HttpGet>(QUrl(url), HttpGet::Limits{deadline, maximumBody}, authorities);
    }

    [[nodiscard]] static QFuture<Body> start(const std::shared_ptr<HttpGet>& request)
    {
        return TaskPools::runApart(TaskPools::Priority::userInitiated,
                                   [request] { return request->perform(); });
    }

    /// Fails the test after a minute.
    [[nodiscard]] static Body result(const QFuture<Body>& future)
    {
        EngineRun::turnUntil([&future] { return future.isFinished(); });
        return future.isFinished() ? future.result() : std::nullopt;
    }

    [[nodiscard]] Body get(const QString& url, std::chrono::milliseconds deadline = noDeadline) const
    {
        return result(start(request(url, deadline)));
    }

    QByteArray authorities; ///< the path of their file; empty for those of the system
    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/apps/iTunesAppInfo.h"

#include <QFuture>
#include <QString>
#include <chrono>
#include <optional>

namespace keelbright::iTunesLookupService {

/// The search service that is asked; tests have one of their own.
struct SearchService
{
    /// Scheme, host and port.
    QString origin = QStringLiteral("https://itunes.apple.com");
    /// The request is given up after that long, from the look for the host to the last byte of the answer,
    /// whatever has arrived.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    /// The path of a file with the only certificate authorities to trust; empty for those of the system.
    QByteArray authorities = {};
};

/// An answer that is longer is dropped, and no more of it is kept: five results take some kilobytes.
inline constexpr qint64 maximumBodyBytes = qint64{16} * 1024 * 1024;

/// Asks the App Store for the application of that name, with a new request at each call. Nothing
/// where it does not answer, can't be understood or knows no such application; the caller can't
/// distinguish these. The answer's HTTP status is not looked at, and redirections are followed, from HTTPS
/// only to HTTPS.
///
/// Main thread only; returns at once, and the future finishes on the main thread. An object that may
/// be destroyed meanwhile listens with a `QFutureWatcher`. Cancelling the future ends the request;
/// it is cancelled too when the program quits in the middle.
[[nodiscard]] QFuture<std::optional<iTunesAppInfo>> lookup(const QString& appName,
                                                           const SearchService& service = {});

} // namespace keelbright::iTunesLookupService

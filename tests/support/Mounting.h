#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QStringList>
#include <expected>
#include <string>

namespace keelbright::testing {

/// What the drives of the tests share that are mounted by programs of the system.

/// What a program printed; where it is missing or ended badly, why.
[[nodiscard]] std::expected<QByteArray, std::string> outputOf(const QString& program,
                                                              const QStringList& arguments);

/// Why a program did not do its work; empty when it did.
[[nodiscard]] std::string failureOf(const QString& program, const QStringList& arguments);

/// Waits for a file system whose program goes on in the background; whether it came.
[[nodiscard]] bool isMountedSoon(const FileURL& mountPoint);

/// Takes a mounted file system away at once, whoever still uses it; fails the test where that
/// can't be done.
void unmountAtOnce(const FileURL& mountPoint);

} // namespace keelbright::testing

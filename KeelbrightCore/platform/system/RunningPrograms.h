#pragma once

#include <QByteArray>
#include <QSet>

namespace keelbright {

class FileManager;

/// The programs that the user is running, as they were started: "/usr/lib/firefox-esr/firefox-esr" or
/// "bash". Empty where the system does not report them. Blocks; any thread.
[[nodiscard]] QSet<QByteArray> runningPrograms(const FileManager& files);

} // namespace keelbright

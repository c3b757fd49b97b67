#pragma once

#include <QString>

#include <cstdio>

namespace keelbright {

/// Writes one line to standard output at once. The program keeps no log file; this is for whoever
/// started it from a terminal.
inline void printLine(const QString& line, std::FILE* output = stdout)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), output);
    std::fflush(output);
}

/// The same to standard error, for why the program ends without doing what it was asked.
inline void printErrorLine(const QString& line)
{
    printLine(line, stderr);
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/UserFolders.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

namespace {

FileURL settingsFolder(const FileURL& home)
{
    const QByteArray folder = qgetenv("XDG_CONFIG_HOME");
    // The base directory specification asks to ignore a relative path.
    return folder.startsWith('/') ? FileURL::fromNativePath(folder) : home.appendingNative(".config");
}

/// The content of the quotes in `XDG_MUSIC_DIR="…"`; empty for any other line.
QByteArray quotedValue(const QByteArray& line)
{
    const qsizetype start = line.indexOf("_DIR=\"");
    const qsizetype end = line.lastIndexOf('"');
    if (!line.startsWith("XDG_") || start < 0)
        return {};
    const qsizetype first = start + qsizetype{6};
    if (end < first)
        return {};
    QByteArray value;
    for (qsizetype i = first; i < end; ++i) {
        i += line[i] == '\\' && i + 1 < end ? 1 : 0;
        value.append(line[i]);
    }
    return value;
}

} // namespace

QList<FileURL> userFolders(const FileManager& files)
{
    constexpr qint64 maximumBytes = qint64{64} * 1024; // eight lines, and comments
    const FileURL home = files.homeDirectory();
    const FileURL list =
        files.resolvingSymlinks(settingsFolder(home).appending(QStringLiteral("user-dirs.dirs")));
    if (files.fileSize(list).value_or(maximumBytes + 1) > maximumBytes)
        return {};
    QList<FileURL> folders;
    for (const QByteArray& line : files.contents(list).value_or(QByteArray()).split('\n')) {
        const QByteArray value = quotedValue(line.trimmed());
        const QByteArrayView homeVariable("$HOME/");
        if (value.startsWith(homeVariable))
            folders.append(home.appendingNative(QByteArrayView(value).sliced(homeVariable.size())));
        else if (value.startsWith('/'))
            folders.append(FileURL::fromNativePath(value));
    }
    return folders;
}

} // namespace keelbright

#include "KeelbrightCore/platform/files/UserFolders.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

#include <optional>

namespace keelbright {

namespace {

struct Assignment
{
    QByteArray name;
    QByteArray value;
};

/// The text up to the closing quote, without its backslashes; what follows the quote is a comment.
std::optional<QByteArray> upToQuote(QByteArrayView text)
{
    QByteArray value;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            return value;
        i += text[i] == '\\' && i + 1 < text.size() ? 1 : 0;
        value.append(text[i]);
    }
    return std::nullopt;
}

/// A line such as `XDG_MUSIC_DIR="…"`; nothing for any other line.
std::optional<Assignment> assignmentIn(QByteArrayView line)
{
    const QByteArrayView start("XDG_");
    const QByteArrayView end("_DIR");
    const qsizetype sign = line.indexOf('=');
    if (sign < 0)
        return std::nullopt;
    const QByteArrayView key = line.first(sign).trimmed();
    const QByteArrayView text = line.sliced(sign + 1).trimmed();
    if (!key.startsWith(start) || !key.endsWith(end) || key.size() <= start.size() + end.size() ||
        !text.startsWith('"'))
        return std::nullopt;
    const auto value = upToQuote(text.sliced(1));
    if (!value)
        return std::nullopt;
    return Assignment{key.sliced(start.size()).chopped(end.size()).toByteArray(), *value};
}

/// Nothing for a relative path, which the desktop ignores too.
std::optional<FileURL> folderAt(const QByteArray& value, const FileURL& home)
{
    const QByteArrayView variable("$HOME");
    if (value == variable)
        return home;
    if (value.startsWith(variable) && value.at(variable.size()) == '/')
        return home.appendingNative(QByteArrayView(value).sliced(variable.size() + 1));
    return value.startsWith('/') ? std::optional(FileURL::fromNativePath(value)) : std::nullopt;
}

} // namespace

QHash<QByteArray, FileURL> userFolders(const FileManager& files)
{
    constexpr qint64 maximumBytes = qint64{64} * 1024; // eight lines, and comments
    const FileURL home = files.homeDirectory();
    const FileURL list = XdgFolders::configuration(files).appending(QStringLiteral("user-dirs.dirs"));
    QHash<QByteArray, FileURL> folders;
    for (const QByteArray& line : files.contents(list, maximumBytes).value_or(QByteArray()).split('\n')) {
        const auto assignment = assignmentIn(line);
        const auto folder = assignment ? folderAt(assignment->value, home) : std::nullopt;
        if (folder)
            folders.insert(assignment->name, *folder);
    }
    return folders;
}

} // namespace keelbright

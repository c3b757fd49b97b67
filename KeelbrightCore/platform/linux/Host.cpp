#include "KeelbrightCore/platform/system/Host.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/HostName.h"

#include <cerrno>
#include <new>
#include <sys/utsname.h>

namespace keelbright {

namespace {

/// What follows a backslash: within double quotes it is only special before these four.
bool isEscapable(char byte, char quote)
{
    return quote == '\0' || QByteArrayView("$`\"\\").contains(byte);
}

/// The value of a shell assignment without its quotes; nothing where a quote stays open.
std::optional<QByteArray> withoutShellQuotes(QByteArrayView text)
{
    QByteArray value;
    char quote = '\0';
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char byte = text[i];
        if (byte == '\\' && quote != '\'' && i + 1 < text.size() && isEscapable(text[i + 1], quote))
            value.append(text[++i]);
        else if (quote == '\0' && (byte == '"' || byte == '\''))
            quote = byte;
        else if (quote != '\0' && byte == quote)
            quote = '\0';
        else
            value.append(byte);
    }
    if (quote != '\0')
        return std::nullopt;
    return value;
}

/// The value of the last assignment of `key` in a file of shell assignments such as os-release.
std::optional<QString> assignedValue(const QString& path, const QByteArray& key)
{
    FileManager& files = FileManager::defaultManager();
    const auto content = files.contents(files.systemLocation(path));
    // A machine of another name would be backed up into another folder.
    if (!content && content.error().reason == FileError::Reason::system && content.error().code == ENOMEM)
        throw std::bad_alloc();
    if (!content)
        return std::nullopt;
    std::optional<QString> result;
    for (const QByteArray& line : content->split('\n')) {
        const QByteArray trimmed = line.trimmed();
        if (!trimmed.startsWith(key + '='))
            continue;
        const auto value = withoutShellQuotes(QByteArrayView(trimmed).sliced(key.size() + 1));
        const QString text = value ? QString::fromUtf8(*value).trimmed() : QString();
        if (!text.isEmpty())
            result = text;
    }
    return result;
}

QString kernelVersion()
{
    utsname names = {};
    if (::uname(&names) != 0)
        return QStringLiteral("Unknown");
    return QString::fromUtf8(names.sysname) + u' ' + QString::fromUtf8(names.release);
}

} // namespace

std::optional<QString> Host::localizedName()
{
    const std::optional<QString> given =
        assignedValue(QStringLiteral("/etc/machine-info"), "PRETTY_HOSTNAME");
    return given ? given : hostName();
}

QString Host::operatingSystemVersionString()
{
    for (const QString& path : {QStringLiteral("/etc/os-release"), QStringLiteral("/usr/lib/os-release")}) {
        if (const std::optional<QString> name = assignedValue(path, "PRETTY_NAME"))
            return *name;
    }
    return kernelVersion();
}

} // namespace keelbright

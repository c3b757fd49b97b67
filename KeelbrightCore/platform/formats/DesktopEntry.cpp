#include "KeelbrightCore/platform/formats/DesktopEntry.h"

#include <QHash>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The values of one group, still escaped, by their whole keys such as "Name[de]".
using Group = QHash<QByteArray, QByteArray>;

std::optional<Group> entryGroup(const QByteArray& data)
{
    std::optional<Group> group;
    bool isInside = false;
    for (const QByteArray& rawLine : data.split('\n')) {
        const QByteArray line = rawLine.trimmed();
        if (line.startsWith('[')) {
            // A second group of that name would be no entry.
            isInside = line == "[Desktop Entry]" && !group;
            if (isInside)
                group.emplace();
            continue;
        }
        const qsizetype sign = line.indexOf('=');
        if (isInside && group && sign > 0 && !line.startsWith('#'))
            group->insert(line.left(sign).trimmed(), line.mid(sign + 1).trimmed());
    }
    return group;
}

/// What a backslash and this character stand for; the two as they are where they stand for nothing.
QString meaningOf(QChar escaped)
{
    switch (escaped.unicode()) {
    case 's':
        return u" "_s;
    case 'n':
        return u"\n"_s;
    case 't':
        return u"\t"_s;
    case 'r':
        return u"\r"_s;
    case '\\':
        return u"\\"_s;
    default:
        return u"\\"_s + escaped;
    }
}

QString unescaped(const QByteArray& value)
{
    const QString raw = QString::fromUtf8(value);
    QString text;
    for (qsizetype i = 0; i < raw.size(); ++i) {
        if (raw[i] == u'\\' && i + 1 < raw.size())
            text += meaningOf(raw[++i]);
        else
            text += raw[i];
    }
    return text;
}

/// The parts between semicolons that no backslash stands before; the last one may end with one.
QStringList listOf(const QByteArray& value)
{
    QStringList parts;
    QByteArray part;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) {
            part += value[i + 1] == ';' ? QByteArray(";") : value.mid(i, 2);
            ++i;
        } else if (value[i] == ';') {
            parts.append(unescaped(part));
            part.clear();
        } else {
            part += value[i];
        }
    }
    if (!part.isEmpty())
        parts.append(unescaped(part));
    return parts;
}

QString localized(const Group& group, const QByteArray& key, const QStringList& languages)
{
    for (const QString& language : languages) {
        const auto found = group.constFind(key + '[' + language.toUtf8() + ']');
        if (found != group.constEnd())
            return unescaped(*found);
    }
    return unescaped(group.value(key));
}

/// The locales that messages are wanted in, the best one first.
QStringList messageLocales()
{
    // Qt takes this list for the window, also where the locale is "C", in which gettext passes it over.
    QStringList chosen = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
    if (!chosen.isEmpty())
        return chosen;
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString locale = qEnvironmentVariable(variable);
        if (!locale.isEmpty())
            return {locale};
    }
    return {};
}

/// Those of one locale, at the end. That of machines has none.
void addTags(QStringList& tags, const QString& locale)
{
    const QString modifier = locale.contains(u'@') ? locale.mid(locale.indexOf(u'@')) : QString();
    const QString place = locale.section(u'@', 0, 0).section(u'.', 0, 0);
    const QString language = place.section(u'_', 0, 0);
    if (language.isEmpty() || language == "C"_L1 || language == "POSIX"_L1)
        return;
    for (const QString& tag : {place + modifier, place, language + modifier, language}) {
        if (!tags.contains(tag))
            tags.append(tag);
    }
}

/// "NAME=value", which stands before a program that is run by `env`.
bool isAssignment(const QString& argument)
{
    return argument.indexOf(u'=') > 0;
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::fromData(const QByteArray& data, const QStringList& languages)
{
    const std::optional<Group> group = entryGroup(data);
    if (!group)
        return std::nullopt;
    const auto text = [&](const char* key) { return unescaped(group->value(key)); };
    const auto isTrue = [&](const char* key) { return group->value(key) == "true"; };
    DesktopEntry entry;
    entry.type = text("Type");
    entry.name = localized(*group, "Name", languages);
    entry.exec = text("Exec");
    entry.tryExec = text("TryExec");
    entry.icon = localized(*group, "Icon", languages);
    entry.flatpak = text("X-Flatpak");
    entry.snap = text("X-SnapInstanceName");
    entry.isHidden = isTrue("Hidden");
    entry.isNoDisplay = isTrue("NoDisplay");
    if (group->contains("OnlyShowIn"))
        entry.onlyShowIn = listOf(group->value("OnlyShowIn"));
    entry.notShowIn = listOf(group->value("NotShowIn"));
    return entry;
}

bool DesktopEntry::isShownIn(const QStringList& desktops) const
{
    for (const QString& desktop : desktops) {
        if (onlyShowIn && onlyShowIn->contains(desktop))
            return true;
        if (notShowIn.contains(desktop))
            return false;
    }
    return !onlyShowIn;
}

QStringList DesktopEntry::arguments() const
{
    QStringList all;
    QString argument;
    bool isQuoted = false;
    bool hasArgument = false; // an empty one in quotes counts
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar character = exec[i];
        if (character == u'\\' && i + 1 < exec.size()) {
            argument += exec[++i];
            hasArgument = true;
        } else if (character == u'"') {
            isQuoted = !isQuoted;
            hasArgument = true;
        } else if (!isQuoted && character.isSpace()) {
            if (hasArgument)
                all.append(argument);
            argument.clear();
            hasArgument = false;
        } else {
            argument += character;
            hasArgument = true;
        }
    }
    if (isQuoted)
        return {};
    if (hasArgument)
        all.append(argument);
    return all;
}

QString DesktopEntry::program() const
{
    const QStringList all = arguments();
    const auto isEnv = [](const QString& argument) {
        return argument == "env"_L1 || argument.endsWith("/env"_L1);
    };
    if (all.isEmpty() || !isEnv(all.first()))
        return all.value(0);
    const auto program = std::find_if(all.cbegin() + 1, all.cend(), [](const QString& argument) {
        return !isAssignment(argument) && !argument.startsWith(u'-');
    });
    return program == all.cend() ? QString() : *program;
}

QStringList messageLanguages()
{
    QStringList tags;
    for (const QString& locale : messageLocales()) {
        addTags(tags, locale);
        // A name without a language is English, so none in a less wanted language comes before it.
        if (tags.contains("en"_L1))
            break;
    }
    return tags;
}

} // namespace keelbright

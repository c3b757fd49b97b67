#include "KeelbrightCore/apps/UsageRecords.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

QByteArray read(const FileURL& file, const FileManager& files)
{
    constexpr qint64 maximumBytes = qint64{64} * 1024 * 1024;
    return files.contents(file, maximumBytes).value_or(QByteArray());
}

} // namespace

std::optional<QDateTime> AppUse::dateOf(qint64 seconds)
{
    const QDateTime date = QDateTime::fromSecsSinceEpoch(seconds, utcZone);
    return seconds > 0 && date.isValid() ? std::optional(date) : std::nullopt;
}

AppUse AppUse::combinedWith(const AppUse& other) const
{
    // An absent date is less than any other.
    return {.count = std::max(count, other.count), .last = std::max(last, other.last)};
}

UsageRecords::UsageRecords(const FileManager& files)
{
    const LinuxUsage places = MachinePlaces(files).linuxUsage();
    UsageReading::Recent recent = UsageReading::recentFiles(read(places.recentFiles, files));
    m_recentByProgram = std::move(recent.byProgram);
    m_recentByName = std::move(recent.byName);
    m_byId = UsageReading::gnomeState(read(places.gnomeState, files));
    const Uses plasma = UsageReading::plasmaDatabase(places.plasmaDatabase);
    for (auto use = plasma.constBegin(); use != plasma.constEnd(); ++use)
        m_byId[use.key()] = m_byId.value(use.key()).combinedWith(*use);
}

std::optional<AppUse> UsageRecords::of(const DesktopApplication& application) const
{
    std::optional<AppUse> found;
    const auto add = [&found](const Uses& uses, const QString& key) {
        const auto use = uses.constFind(key);
        if (!key.isEmpty() && use != uses.constEnd())
            found = found ? found->combinedWith(*use) : *use;
    };
    add(m_byId, application.id);
    add(m_recentByName, application.id);
    add(m_recentByProgram, ownProgramOf(application.entry));
    return found;
}

QString ownProgramOf(const DesktopEntry& entry)
{
    static const QStringList runners{u"bash"_s,         u"dbus-launch"_s, u"flatpak"_s,
                                     u"gapplication"_s, u"gjs"_s,         u"gksu"_s,
                                     u"java"_s,         u"mono"_s,        u"node"_s,
                                     u"perl"_s,         u"pkexec"_s,      u"ruby"_s,
                                     u"sh"_s,           u"snap"_s,        u"steam"_s,
                                     u"sudo"_s,         u"wine"_s,        u"x-terminal-emulator"_s,
                                     u"xdg-open"_s,     u"xterm"_s};
    const QString program = entry.program().section(u'/', -1);
    return runners.contains(program) || program.startsWith("python"_L1) ? QString() : program;
}

} // namespace keelbright

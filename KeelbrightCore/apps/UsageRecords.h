#pragma once

#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include <QDateTime>
#include <QHash>
#include <optional>

namespace keelbright {

/// How an application has been used, as far as one desktop has recorded it.
struct AppUse
{
    qint64 count = 0;                   ///< of openings; on GNOME an estimate from the time in focus
    std::optional<QDateTime> last = {}; ///< UTC

    /// Seconds since 1970 as a date; nothing where there is no such date.
    [[nodiscard]] static std::optional<QDateTime> dateOf(qint64 seconds);

    /// What both know: each may have missed something, so the larger count and the later date hold.
    [[nodiscard]] AppUse combinedWith(const AppUse& other) const;

    friend bool operator==(const AppUse&, const AppUse&) = default;
};

/// What the desktops of this machine have recorded of the use of applications. Internal to the
/// application scanner.
class UsageRecords
{
public:
    using Uses = QHash<QString, AppUse>;

    /// Reads the records. Blocks; any thread.
    explicit UsageRecords(const FileManager& files);

    /// Nothing where no desktop has recorded a use.
    [[nodiscard]] std::optional<AppUse> of(const DesktopApplication& application) const;

private:
    Uses m_recentByProgram; ///< by the file name of the program
    Uses m_recentByName;    ///< by the name under which a program without a known file registers
    Uses m_byId;            ///< what GNOME and Plasma know
};

/// The readers of the records, whose content is not trusted. An unreadable one is empty.
namespace UsageReading {

/// Opened documents by each program: first by the file name of the program, then by its name.
struct Recent
{
    UsageRecords::Uses byProgram;
    UsageRecords::Uses byName;
};

[[nodiscard]] Recent recentFiles(const QByteArray& xbel);
/// By the id of the entry. The shell notes only how long an application has had the focus, so the count is an
/// estimate: one use for each five minutes, and at least one. The shell halves all scores as soon as one is
/// above 25,714, so it counts no more than 599 uses.
[[nodiscard]] UsageRecords::Uses gnomeState(const QByteArray& xml);
/// By the id of the entry.
[[nodiscard]] UsageRecords::Uses plasmaDatabase(const FileURL& database);

} // namespace UsageReading

/// The file name of the program that the entry runs; empty where that is one that runs others, such as
/// "python3" or "flatpak", and so says nothing of the application.
[[nodiscard]] QString ownProgramOf(const DesktopEntry& entry);

} // namespace keelbright

#include "KeelbrightCore/backup/BackupSnapshot.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

namespace keelbright {

QString BackupSnapshot::label() const
{
    return DateFormatter::string(date, DateFormatter::Style::medium, DateFormatter::Style::short_);
}

} // namespace keelbright

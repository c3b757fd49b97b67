#include "KeelbrightCore/backup/BackupJob.h"

namespace keelbright {

QStringList BackupJob::sourcePaths() const
{
    QStringList paths;
    for (const BackupSource& source : sources)
        paths.append(source.url.path());
    return paths;
}

} // namespace keelbright

#include "Keelbright/screens/backup/BackupRunningPanel.h"

#include "Keelbright/screens/shared/NumberStrip.h"
#include "Keelbright/state/L10n.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype copiedCell = 0;
constexpr qsizetype skippedCell = 1;
constexpr qsizetype sizeCell = 2;

} // namespace

BackupRunningPanel::BackupRunningPanel(QWidget* parent)
    : RunningPanel(tr("Backup progress"), tr("Cancel Backup"), parent)
{
    numbers().addCell(tr("Copied"), u"doc.fill"_s);
    numbers().addCell(tr("Skipped"), u"minus.circle"_s);
    numbers().addCell(tr("Size"), u"internaldrive"_s);
    setDestinationName({});
    setProgress({});
}

void BackupRunningPanel::setDestinationName(const QString& name)
{
    setTitle(tr("Backing up to %1").arg(name.isEmpty() ? u"…"_s : name));
}

void BackupRunningPanel::setProgress(const BackupProgress& progress)
{
    setFraction(progress.fractionCompleted());
    setDetail(progress.currentFile.isEmpty() ? tr("Scanning files…") : progress.currentFile);
    numbers().setValue(copiedCell, QString::number(progress.filesCopied));
    numbers().setValue(skippedCell, QString::number(progress.filesSkipped));
    numbers().setValue(sizeCell, L10n::Formatters::bytes(progress.bytesCopied));
}

} // namespace keelbright

#include "Keelbright/screens/check/CheckRunningPanel.h"

#include "Keelbright/screens/shared/NumberStrip.h"
#include "Keelbright/state/CheckTexts.h"
#include "Keelbright/state/L10n.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Phase = CheckProgressValues::Phase;

enum Cell : qsizetype { checkedCell, faultsCell, speedCell };

/// For a value that is not known yet.
QString unknown()
{
    return u"–"_s;
}

QString currentWork(const CheckProgressValues& progress)
{
    switch (progress.phase) {
    case Phase::counting:
        return CheckRunningPanel::tr("Counting the copies…");
    case Phase::reading:
        return QString::fromUtf8(progress.currentFile);
    case Phase::lookingForNew:
        return CheckRunningPanel::tr("Looking for files that are not backed up yet…");
    }
    return {};
}

} // namespace

CheckRunningPanel::CheckRunningPanel(QWidget* parent)
    : RunningPanel(tr("Check progress"), tr("Cancel Check"), parent)
{
    numbers().addCell(tr("Checked"), u"doc.fill"_s);
    numbers().addCell(tr("Faults"), u"exclamationmark.triangle.fill"_s);
    numbers().addCell(tr("Speed"), u"internaldrive"_s);
    setTitle(tr("Checking the copies"));
    setProgress({}, {});
}

void CheckRunningPanel::setProgress(const CheckProgressValues& progress, const CheckPace& pace)
{
    setFraction(progress.fraction());
    setDetail(currentWork(progress));
    const bool isCounted = progress.phase != Phase::counting;
    numbers().setValue(checkedCell, isCounted ? tr("%1 of %2")
                                                    .arg(CheckTexts::number(progress.checkedFiles),
                                                         CheckTexts::number(progress.files))
                                              : unknown());
    numbers().setValue(faultsCell, CheckTexts::number(progress.faults));
    const bool isReading = progress.phase == Phase::reading;
    const auto speed = isReading ? pace.speed() : std::nullopt;
    numbers().setValue(speedCell, speed ? tr("%1/s").arg(L10n::Formatters::bytes(*speed)) : unknown());
}

} // namespace keelbright

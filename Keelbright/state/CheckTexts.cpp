#include "Keelbright/state/CheckTexts.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QLocale>
#include <algorithm>

namespace keelbright::CheckTexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CheckTexts)
};

/// A sentence about some files, in the singular or in the plural with their number.
QString counted(qint64 count, const char* one, const char* many)
{
    return count == 1 ? Texts::tr(one) : Texts::tr(many, nullptr, pluralNumber(count));
}

/// About the copies that are damaged or can't be read, without the folders that can't be listed.
QString damagedCopies(const CheckReport& report, const QString& drive, qint64 faults)
{
    if (report.checked == 1)
        return report.unreadableFolders == 0
                   ? Texts::tr("The only copy on %1 is damaged or can't be read.").arg(drive)
                   : Texts::tr("1 copy on %1 is damaged or can't be read.").arg(drive);
    if (faults == 1)
        return Texts::tr("1 of %Ln copies on %1 is damaged or can't be read.", nullptr,
                         pluralNumber(report.checked))
            .arg(drive);
    return Texts::tr("%Ln of %1 copies on %2 are damaged or can't be read.", nullptr, pluralNumber(faults))
        .arg(number(report.checked), drive);
}

QString damaged(const CheckReport& report, const QString& drive)
{
    const qint64 folders = report.unreadableFolders;
    const qint64 faults = report.faults() - folders;
    if (folders == 0)
        return damagedCopies(report, drive, faults);
    // How many copies lie in such a folder is not known.
    const QString unlisted =
        counted(folders, QT_TRANSLATE_NOOP("CheckTexts", "1 folder of copies on %1 can't be read."),
                QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln folders of copies on %1 can't be read."))
            .arg(drive);
    return faults == 0 ? unlisted : Texts::tr("%1 %2").arg(damagedCopies(report, drive, faults), unlisted);
}

/// About copies that were compared with a list of checksums. Those that the list does not know were not read.
QString soundByList(const CheckReport& report, const QString& drive)
{
    const qint64 count = report.checked + report.count(CopyVerdict::onlyOnDrive);
    const qint64 same = report.count(CopyVerdict::same);
    const int all = pluralNumber(count);
    if (report.checked == 0)
        return Texts::tr("The list has no copies on %1.").arg(drive);
    if (count == 1)
        return same == 1 ? Texts::tr("The only copy on %1 is readable and equal to its checksum.").arg(drive)
                         : Texts::tr("The only copy on %1 is readable.").arg(drive);
    if (same == count)
        return Texts::tr("All %Ln copies on %1 are readable and equal to their checksums.", nullptr, all)
            .arg(drive);
    if (same == 0)
        return Texts::tr("None of the %Ln copies on %1 could be compared with its checksum.", nullptr, all)
            .arg(drive);
    if (same == 1)
        return Texts::tr("1 of %Ln copies on %1 is readable and equal to its checksum.", nullptr, all)
            .arg(drive);
    return Texts::tr("%1 of %Ln copies on %2 are readable and equal to their checksums.", nullptr, all)
        .arg(number(same), drive);
}

/// About copies that were compared with their originals. A copy whose original has changed or is gone was
/// read, but nothing is known of what it should hold.
QString soundByOriginals(const CheckReport& report, const QString& drive)
{
    const qint64 same = report.count(CopyVerdict::same);
    const int all = pluralNumber(report.checked);
    if (report.checked == 0)
        return Texts::tr("There are no copies on %1 yet.").arg(drive);
    if (report.checked == 1)
        return same == 1 ? Texts::tr("The only copy on %1 is readable and equal to its original.").arg(drive)
                         : Texts::tr("The only copy on %1 is readable.").arg(drive);
    if (same == report.checked)
        return Texts::tr("All %Ln copies on %1 are readable and equal to their originals.", nullptr, all)
            .arg(drive);
    if (same == 0)
        return Texts::tr("All %Ln copies on %1 are readable, but none could be compared with an unchanged "
                         "original.",
                         nullptr, all)
            .arg(drive);
    if (same == 1)
        return Texts::tr("All %Ln copies on %1 are readable, and 1 of them is equal to its original.",
                         nullptr, all)
            .arg(drive);
    return Texts::tr("All %Ln copies on %1 are readable, and %2 of them are equal to their originals.",
                     nullptr, all)
        .arg(drive, number(same));
}

QString sound(const CheckReport& report, const QString& drive)
{
    return report.isAgainstList ? soundByList(report, drive) : soundByOriginals(report, drive);
}

/// For a check that did not come to its end.
QString broken(const CheckReport& report, const QString& drive)
{
    const QString checked = number(report.checked);
    const int all = pluralNumber(std::max(report.copies, report.checked));
    const QString start =
        report.end == CheckReport::End::driveGone
            ? Texts::tr("%1 was removed after %2 of %Ln copies had been checked.", nullptr, all)
            : Texts::tr("The check of %1 was cancelled after %2 of %Ln copies.", nullptr, all);
    const QString found =
        report.faults() == 0
            ? Texts::tr("No fault was found until then.")
            : counted(report.faults(),
                      QT_TRANSLATE_NOOP("CheckTexts", "1 of them is damaged or can't be read."),
                      QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln of them are damaged or can't be read."));
    return Texts::tr("%1 %2").arg(start.arg(drive, checked), found);
}

} // namespace

QString number(qint64 count)
{
    return QLocale().toString(count);
}

QString driveName(const FileURL& deviceFolder)
{
    FileURL place = deviceFolder;
    if (place.nativeLastPathComponent() != "Keelbright")
        place = place.deletingLastPathComponent();
    if (place.nativeLastPathComponent() == "Keelbright")
        place = place.deletingLastPathComponent();
    return place.lastPathComponent();
}

QString headline(const CheckReport& report)
{
    if (report.end == CheckReport::End::failed)
        return report.error
                   ? Texts::tr("The copies can't be checked: %1").arg(report.error->localizedDescription())
                   : Texts::tr("The copies can't be checked.");
    const QString drive = driveName(report.deviceFolder);
    if (report.end != CheckReport::End::complete)
        return broken(report, drive);
    return report.faults() > 0 ? damaged(report, drive) : sound(report, drive);
}

QStringList details(const CheckReport& report)
{
    if (report.end == CheckReport::End::failed)
        return {};
    QStringList lines;
    const auto add = [&](qint64 count, const char* one, const char* many) {
        if (count > 0)
            lines.append(counted(count, one, many));
    };
    if (report.faults() > 0 && !report.isAgainstList)
        lines.append(
            Texts::tr("The next backup replaces damaged copies by new ones wherever there is an original."));
    if (report.isAgainstList) {
        add(report.count(CopyVerdict::changedSince),
            QT_TRANSLATE_NOOP("CheckTexts", "1 copy was written after the list, so it was only read."),
            QT_TRANSLATE_N_NOOP("CheckTexts",
                                "%Ln copies were written after the list, so they were only read."));
        add(report.count(CopyVerdict::onlyOnDrive),
            QT_TRANSLATE_NOOP("CheckTexts", "1 copy is not in the list, so it was not read."),
            QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln copies are not in the list, so they were not read."));
        add(report.unknownLines, QT_TRANSLATE_NOOP("CheckTexts", "1 line of the list can't be understood."),
            QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln lines of the list can't be understood."));
    } else {
        add(report.count(CopyVerdict::changedSince),
            QT_TRANSLATE_NOOP("CheckTexts", "1 original has changed since it was copied."),
            QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln originals have changed since they were copied."));
        add(report.count(CopyVerdict::onlyOnDrive),
            QT_TRANSLATE_NOOP("CheckTexts", "1 copy has no original any more."),
            QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln copies have no original any more."));
        add(report.count(CopyVerdict::originalUnreadable),
            QT_TRANSLATE_NOOP("CheckTexts", "1 original could not be read, so its copy was not compared."),
            QT_TRANSLATE_N_NOOP("CheckTexts",
                                "%Ln originals could not be read, so their copies were not compared."));
        add(report.count(CopyVerdict::notBackedUp),
            QT_TRANSLATE_NOOP("CheckTexts", "1 file is not backed up yet."),
            QT_TRANSLATE_N_NOOP("CheckTexts", "%Ln files are not backed up yet."));
    }
    if (!report.isFromDrive && report.checked > 0)
        lines.append(
            Texts::tr("This drive can't be read past a computer's memory, so copies may have been read "
                      "from there."));
    return lines;
}

QString place(const CheckFinding& finding, const CheckReport& report)
{
    const QByteArray& path = finding.item.nativePath();
    const QByteArray folder = report.personalFiles.nativePath() + '/';
    return path.startsWith(folder) ? QString::fromUtf8(path.sliced(folder.size())) : finding.item.path();
}

QString reason(const CheckFinding& finding)
{
    switch (finding.reason) {
    case CheckFinding::Reason::system:
        break;
    case CheckFinding::Reason::differsFromSource:
        return Texts::tr("It differs from its original, which has not changed since the backup.");
    case CheckFinding::Reason::differsFromList:
        return Texts::tr("It differs from its checksum, and was not written since.");
    case CheckFinding::Reason::readInTwoWays:
        return Texts::tr("It gave different data when it was read twice.");
    }
    return finding.error ? finding.error->localizedDescription() : QString();
}

QString listOf(const CheckReport& report)
{
    QString text;
    for (const CheckFinding& finding : report.findings)
        text += finding.item.path() + u'\t' + reason(finding) + u'\n';
    return text;
}

} // namespace keelbright::CheckTexts

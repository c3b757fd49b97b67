#include "Keelbright/state/L10n.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QCoreApplication>

namespace keelbright::L10n {

namespace Dashboard {

const QString& title()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Dashboard");
    return text;
}

const QString& neverBackedUp()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Never Backed Up");
    return text;
}

const QString& backingUp()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Backing Up...");
    return text;
}

const QString& completed()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Backup Completed");
    return text;
}

const QString& attentionNeeded()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Attention Needed");
    return text;
}

const QString& overdue()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Overdue");
    return text;
}

const QString& noDestination()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "No Destination");
    return text;
}

const QString& noFolders()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "No Folders Selected");
    return text;
}

const QString& ready()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Ready to Back Up");
    return text;
}

const QString& nextBackup()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Next Backup");
    return text;
}

const QString& manualOnly()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Manual Only");
    return text;
}

const QString& latestBackup()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Latest Backup");
    return text;
}

const QString& setupDestination()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Setup Destination");
    return text;
}

const QString& selectItems()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Select Items");
    return text;
}

const QString& runBackupNow()
{
    static const QString text = QCoreApplication::translate("L10n::Dashboard", "Run Backup Now");
    return text;
}

} // namespace Dashboard

namespace Preflight {

const QString& title()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Preflight Check");
    return text;
}

const QString& analyzing()
{
    static const QString text =
        QCoreApplication::translate("L10n::Preflight", "Analyzing selected folders...");
    return text;
}

const QString& estimateTitle()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Backup Estimate");
    return text;
}

const QString& totalFiles()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Estimated Files:");
    return text;
}

const QString& totalSize()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Estimated Size:");
    return text;
}

const QString& destinationFree()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Destination Free Space:");
    return text;
}

const QString& warningTitle()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Warnings");
    return text;
}

const QString& errorTitle()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Errors");
    return text;
}

const QString& notEnoughSpace()
{
    static const QString text =
        QCoreApplication::translate("L10n::Preflight", "Not enough free space on the destination drive.");
    return text;
}

const QString& confirmBackup()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Confirm & Start");
    return text;
}

const QString& cancel()
{
    static const QString text = QCoreApplication::translate("L10n::Preflight", "Cancel");
    return text;
}

const QString& resolveErrors()
{
    static const QString text =
        QCoreApplication::translate("L10n::Preflight", "Please resolve errors before continuing.");
    return text;
}

} // namespace Preflight

namespace Formatters {

QString bytes(qint64 count)
{
    return ByteCountFormatter::string(count);
}

QString date(const QDateTime& date)
{
    return DateFormatter::string(date, DateFormatter::Style::medium, DateFormatter::Style::short_);
}

} // namespace Formatters
} // namespace keelbright::L10n

#include "Keelbright/screens/recovery/ManifestSummary.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/backup/BackupManifest.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowPadding = Metrics::cardPadding;
constexpr int factLabelWidth = 110;
constexpr int dotfileColumns = 3;
constexpr qsizetype shownApps = 20;

/// A row with its own heading; gives the layout below the heading.
QVBoxLayout* addGroup(RowList& rows, const QString& title)
{
    auto* group = new QWidget;
    auto* column = new QVBoxLayout(group);
    column->setContentsMargins(rowPadding, 13, rowPadding, 14);
    column->setSpacing(9);
    column->addWidget(new Label(title, FontRole::bodyStrong, Role::primaryText, group));
    rows.addRow(group);
    return column;
}

QWidget* makeDotfile(const QString& name, bool isPresent)
{
    auto* entry = new QWidget;
    entry->setAccessibleName(isPresent ? ManifestSummary::tr("%1, present").arg(displayText(name))
                                       : ManifestSummary::tr("%1, not present").arg(displayText(name)));
    auto* row = new QHBoxLayout(entry);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(7);
    row->addWidget(new SymbolLabel(isPresent ? u"checkmark.circle.fill"_s : u"xmark.circle"_s, 15,
                                   isPresent ? Role::green : Role::secondaryText, entry));
    row->addWidget(new ElidedLabel(name, FontRole::body, Role::primaryText, Qt::ElideRight, entry), 1);
    return entry;
}

} // namespace

ManifestSummary::ManifestSummary(const BackupManifest& manifest, QWidget* parent)
    : RowList(parent)
{
    addFact(tr("Device"), manifest.deviceName);
    addFact(tr("macOS"), manifest.macOSVersion);
    addFact(tr("Backed up"), DateFormatter::string(manifest.backupDate, DateFormatter::Style::long_,
                                                   DateFormatter::Style::short_));
    addFact(tr("Shell"), manifest.shellInfo);
    addDotfiles(manifest);
    addApps(manifest);
}

void ManifestSummary::addFact(const QString& label, const QString& value)
{
    auto* fact = new QWidget;
    fact->setAccessibleName(tr("%1: %2").arg(label, displayText(value)));
    auto* row = new QHBoxLayout(fact);
    row->setContentsMargins(rowPadding, 10, rowPadding, 10);
    row->setSpacing(12);
    auto* name = new Label(label, FontRole::body, Role::secondaryText, fact);
    name->setMinimumWidth(factLabelWidth);
    row->addWidget(name);
    row->addWidget(new ElidedLabel(value, FontRole::body, Role::primaryText, Qt::ElideRight, fact), 1);
    addRow(fact);
}

void ManifestSummary::addDotfiles(const BackupManifest& manifest)
{
    QVBoxLayout* group = addGroup(*this, tr("Dotfiles"));
    if (manifest.dotfilesPresent.isEmpty())
        return;
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(7);
    int index = 0;
    for (auto entry = manifest.dotfilesPresent.cbegin(); entry != manifest.dotfilesPresent.cend(); ++entry) {
        grid->addWidget(makeDotfile(entry.key(), entry.value()), index / dotfileColumns,
                        index % dotfileColumns);
        ++index;
    }
    for (int column = 0; column < dotfileColumns; ++column)
        grid->setColumnStretch(column, 1);
    group->addLayout(grid);
}

void ManifestSummary::addApps(const BackupManifest& manifest)
{
    const QString count = QString::number(manifest.installedApps.size());
    QVBoxLayout* group = addGroup(*this, tr("Apps on previous Mac (%1)").arg(count));
    if (manifest.installedApps.isEmpty())
        return;
    QStringList names;
    for (const QString& name :
         manifest.installedApps.first(std::min(shownApps, manifest.installedApps.size())))
        names.append(displayText(name));
    group->addWidget(makeWrappingLabel(names.join(u"  ·  "_s), FontRole::body, Role::secondaryText));
}

} // namespace keelbright

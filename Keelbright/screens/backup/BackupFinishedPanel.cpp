#include "Keelbright/screens/backup/BackupFinishedPanel.h"

#include "Keelbright/screens/shared/NumberStrip.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int outcomeIconSize = 56;

} // namespace

BackupFinishedPanel::BackupFinishedPanel(const BackupReport& report, QWidget* parent)
    : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Metrics::cardSpacing);
    addOutcome(report);
    addNumbers(report);
    addPlace(report);
    addButtons();
}

QString BackupFinishedPanel::headline(const BackupReport& report)
{
    return report.errors.isEmpty() ? tr("Backup Complete") : tr("Backup Finished with Warnings");
}

void BackupFinishedPanel::addOutcome(const BackupReport& report)
{
    auto* column = qobject_cast<QVBoxLayout*>(layout());
    const bool isClean = report.errors.isEmpty();
    auto* icon = new SymbolLabel(isClean ? u"checkmark.seal.fill"_s : u"exclamationmark.triangle.fill"_s,
                                 outcomeIconSize, isClean ? Role::green : Role::orange, this);
    auto* title = makeWrappingLabel(headline(report), FontRole::toolbarTitle, Role::primaryText, this);
    title->setAlignment(Qt::AlignCenter);
    column->addWidget(icon, 0, Qt::AlignHCenter);
    column->addWidget(title);
    column->addSpacing(6);
}

void BackupFinishedPanel::addNumbers(const BackupReport& report)
{
    auto* numbers = new NumberStrip(this);
    numbers->addCell(tr("Files Copied"), u"doc.fill"_s);
    numbers->addCell(tr("Data Copied"), u"internaldrive"_s);
    numbers->addCell(tr("Skipped"), u"minus.circle"_s);
    numbers->setValue(0, QString::number(report.filesCopied));
    numbers->setValue(1, L10n::Formatters::bytes(report.bytesCopied));
    numbers->setValue(2, QString::number(report.filesSkipped));
    layout()->addWidget(numbers);
}

void BackupFinishedPanel::addPlace(const BackupReport& report)
{
    auto* box = new Card(this);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(new Tile(u"folder.fill"_s, Role::accent, Metrics::tile, box));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(new Label(tr("Files backed up to:"), FontRole::secondary, Role::secondaryText, box));
    texts->addWidget(
        new ElidedLabel(report.personalFilesPath, FontRole::body, Role::primaryText, Qt::ElideMiddle, box));
    row->addLayout(texts, 1);
    box->content()->addLayout(row);
    layout()->addWidget(box);
}

void BackupFinishedPanel::addButtons()
{
    auto* column = qobject_cast<QVBoxLayout*>(layout());
    auto* open = new Button(Button::Kind::primary, tr("Open Personal Files in Finder"),
                            u"folder.badge.magnifyingglass"_s, this);
    auto* report = new Button(Button::Kind::bordered, tr("View Full Report"), {}, this);
    auto* back = new Button(Button::Kind::bordered, tr("Back to Dashboard"), {}, this);
    column->addSpacing(8);
    column->addWidget(open, 0, Qt::AlignHCenter);
    auto* others = new QHBoxLayout;
    others->setSpacing(8);
    others->addStretch();
    others->addWidget(report);
    others->addWidget(back);
    others->addStretch();
    column->addLayout(others);
    connect(open, &QPushButton::clicked, this, &BackupFinishedPanel::openFilesPressed);
    connect(report, &QPushButton::clicked, this, &BackupFinishedPanel::viewReportPressed);
    connect(back, &QPushButton::clicked, this, &BackupFinishedPanel::backPressed);
}

} // namespace keelbright

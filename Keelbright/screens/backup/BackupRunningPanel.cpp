#include "Keelbright/screens/backup/BackupRunningPanel.h"

#include "Keelbright/screens/backup/NumberStrip.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Progress.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int ringDiameter = 184;
constexpr int ringThickness = 14;
constexpr int gapBesideButton = 12;

enum Cell : qsizetype { copiedCell, skippedCell, sizeCell };

} // namespace

BackupRunningPanel::BackupRunningPanel(QWidget* parent)
    : QWidget(parent)
    , m_ring(new RingProgress(tr("Backup progress"), ringDiameter, ringThickness, Role::accent, this))
    , m_destination(new ElidedLabel({}, FontRole::headline, Role::primaryText, Qt::ElideRight, this))
    , m_currentFile(new ElidedLabel({}, FontRole::body, Role::secondaryText, Qt::ElideRight, this))
    , m_numbers(new NumberStrip(this))
    , m_cancel(new Button(Button::Kind::bordered, tr("Cancel Backup"), {}, this))
    , m_cancelling(new Label(tr("Cancelling..."), FontRole::body, Role::secondaryText, this))
{
    m_destination->setAlignment(Qt::AlignCenter);
    m_currentFile->setAlignment(Qt::AlignCenter);
    m_numbers->addCell(tr("Copied"), u"doc.fill"_s);
    m_numbers->addCell(tr("Skipped"), u"minus.circle"_s);
    m_numbers->addCell(tr("Size"), u"internaldrive"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_ring, 0, Qt::AlignHCenter);
    layout->addSpacing(20);
    layout->addWidget(m_destination);
    layout->addWidget(m_currentFile);
    layout->addSpacing(20);
    layout->addWidget(m_numbers);
    layout->addSpacing(20);
    layout->addLayout(cancelRow());
    connect(m_cancel, &QPushButton::clicked, this, &BackupRunningPanel::cancelPressed);
    setDestinationName({});
    setProgress({});
}

QLayout* BackupRunningPanel::cancelRow()
{
    auto* row = new QGridLayout;
    // A spacing would be on the right side alone, where the text appears.
    row->setHorizontalSpacing(0);
    m_cancelling->setAccessibleName(m_cancelling->text());
    m_cancelling->setContentsMargins(gapBesideButton, 0, 0, 0);
    row->addWidget(m_cancel, 0, 1);
    row->addWidget(m_cancelling, 0, 2, Qt::AlignLeft | Qt::AlignVCenter);
    // Sides of equal width: the button stays in the middle when the text appears.
    row->setColumnStretch(0, 1);
    row->setColumnStretch(2, 1);
    m_cancelling->hide();
    return row;
}

void BackupRunningPanel::setDestinationName(const QString& name)
{
    m_destination->setFullText(tr("Backing up to %1").arg(name.isEmpty() ? u"…"_s : name));
}

void BackupRunningPanel::setProgress(const BackupProgress& progress)
{
    const double fraction = progress.fractionCompleted();
    m_ring->setFraction(fraction);
    const QString percent = QString::number(static_cast<int>(fraction * 100)) + u'%';
    if (percent != m_ring->centerText())
        m_ring->setCenter(percent, tr("complete"), false);
    m_currentFile->setFullText(progress.currentFile.isEmpty() ? tr("Scanning files…") : progress.currentFile);
    m_numbers->setValue(copiedCell, QString::number(progress.filesCopied));
    m_numbers->setValue(skippedCell, QString::number(progress.filesSkipped));
    m_numbers->setValue(sizeCell, L10n::Formatters::bytes(progress.bytesCopied));
}

void BackupRunningPanel::setCancelling(bool isCancelling)
{
    if (isCancelling != m_cancelling->isHidden())
        return;
    m_cancel->setEnabled(!isCancelling);
    m_cancelling->setVisible(isCancelling);
}

} // namespace keelbright

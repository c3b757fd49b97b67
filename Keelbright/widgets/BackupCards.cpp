#include "Keelbright/widgets/BackupCards.h"

#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/Progress.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

RiskAlertCard::RiskAlertCard(const RiskAlert& alert, QWidget* parent)
    : Banner(color(alert.severity), u"exclamationmark.triangle.fill"_s, alert.title, parent)
{
    setLines({alert.message});
}

Role RiskAlertCard::color(RiskAlert::Severity severity)
{
    switch (severity) {
    case RiskAlert::Severity::low:
        return Role::accent;
    case RiskAlert::Severity::medium:
        return Role::orange;
    case RiskAlert::Severity::high:
        return Role::red;
    }
    return Role::orange;
}

SourceRowCard::SourceRowCard(const BackupSource& source, std::function<void()> onRemove, Role tile,
                             QWidget* parent)
    : RowWidget(new Tile(u"folder.fill"_s, tile), source.url.lastPathComponent(), source.url.path(),
                Detail::path, parent)
{
    if (!onRemove)
        return;
    auto* remove = new Button(Button::Kind::plainIcon, tr("Remove %1").arg(titleLabel()->text()),
                              u"minus.circle.fill"_s, this);
    constexpr double opacity = 0.8;
    remove->setHue(Role::red, opacity);
    connect(remove, &QPushButton::clicked, this, std::move(onRemove));
    addTrailing(remove);
}

ProgressPanel::ProgressPanel(const BackupProgress& progress, QWidget* parent)
    : CardButton(Frame::card, parent)
    , m_currentFile(new ElidedLabel({}, FontRole::secondary, Role::secondaryText, Qt::ElideRight, this))
    , m_bar(new BarProgress(tr("Backup progress"), Role::accent, this))
    , m_percent(new NumberLabel({}, FontRole::bodyStrong, Role::primaryText, this))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    setAccessibleName(tr("Backing Up…"));
    setAccessibleDescription(tr("Show Backup Progress"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metrics::cardPadding, Metrics::cardPadding, Metrics::cardPadding,
                               Metrics::cardPadding);
    column->setSpacing(0);
    auto* head = new QHBoxLayout;
    head->addWidget(new Label(tr("Backing Up…"), FontRole::headline, Role::primaryText, this));
    head->addStretch();
    head->addWidget(new SymbolLabel(u"chevron.right"_s, 16, Role::secondaryText, this));
    column->addLayout(head);
    column->addSpacing(2);
    column->addWidget(m_currentFile);
    column->addSpacing(12);
    auto* bar = new QHBoxLayout;
    bar->setSpacing(12);
    bar->addWidget(m_bar, 1);
    bar->addWidget(m_percent);
    m_percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_percent->setMinimumWidth(40);
    column->addLayout(bar);
    column->addSpacing(12);
    auto* numbers = new QHBoxLayout;
    numbers->setSpacing(6);
    m_copied = addNumber(u"checkmark.circle"_s, numbers);
    m_skipped = addNumber(u"minus.circle"_s, numbers);
    m_size = addNumber(u"internaldrive"_s, numbers);
    numbers->addStretch();
    column->addLayout(numbers);
    setProgress(progress);
}

NumberLabel* ProgressPanel::addNumber(const QString& symbol, QHBoxLayout* row)
{
    auto* number = new NumberLabel({}, FontRole::secondary, Role::secondaryText, this);
    row->addWidget(new SymbolLabel(symbol, 14, Role::secondaryText, this));
    row->addWidget(number);
    row->addSpacing(14);
    return number;
}

void ProgressPanel::setProgress(const BackupProgress& progress)
{
    const double done = fraction(progress);
    m_currentFile->setFullText(progress.currentFile);
    m_bar->setFraction(done);
    m_percent->setText(QString::number(static_cast<int>(done * 100)) + u'%');
    m_copied->setText(tr("%1 copied").arg(progress.filesCopied));
    m_skipped->setText(tr("%1 skipped").arg(progress.filesSkipped));
    m_size->setText(L10n::Formatters::bytes(progress.bytesCopied));
}

double ProgressPanel::fraction(const BackupProgress& progress)
{
    if (progress.totalFilesEstimate <= 0)
        return 0;
    const double done = static_cast<double>(progress.filesCopied + progress.filesSkipped);
    return std::min(1.0, done / static_cast<double>(progress.totalFilesEstimate));
}

} // namespace keelbright

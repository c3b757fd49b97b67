#include "Keelbright/screens/shared/RunningPanel.h"

#include "Keelbright/screens/shared/NumberStrip.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Progress.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int ringDiameter = 184;
constexpr int ringThickness = 14;
constexpr int gapBesideButton = 12;

} // namespace

RunningPanel::RunningPanel(const QString& ringName, const QString& cancel, QWidget* parent)
    : QWidget(parent)
    , m_ring(new RingProgress(ringName, ringDiameter, ringThickness, Role::accent, this))
    , m_title(new ElidedLabel({}, FontRole::headline, Role::primaryText, Qt::ElideRight, this))
    , m_detail(new ElidedLabel({}, FontRole::body, Role::secondaryText, Qt::ElideRight, this))
    , m_timeLeft(new Label({}, FontRole::body, Role::secondaryText, this))
    , m_numbers(new NumberStrip(this))
    , m_cancel(new Button(Button::Kind::bordered, cancel, {}, this))
    , m_cancelling(new Label(tr("Cancelling..."), FontRole::body, Role::secondaryText, this))
{
    m_title->setAlignment(Qt::AlignCenter);
    m_detail->setAlignment(Qt::AlignCenter);
    m_timeLeft->setAlignment(Qt::AlignCenter);
    QSizePolicy policy = m_timeLeft->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_timeLeft->setSizePolicy(policy);
    m_timeLeft->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_ring, 0, Qt::AlignHCenter);
    layout->addSpacing(20);
    layout->addWidget(m_title);
    layout->addWidget(m_detail);
    layout->addWidget(m_timeLeft);
    layout->addSpacing(20);
    layout->addWidget(m_numbers);
    layout->addSpacing(20);
    layout->addLayout(cancelRow());
    connect(m_cancel, &QPushButton::clicked, this, &RunningPanel::cancelPressed);
}

QLayout* RunningPanel::cancelRow()
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

void RunningPanel::setFraction(double fraction)
{
    m_ring->setFraction(fraction);
    const QString percent = QString::number(static_cast<int>(fraction * 100)) + u'%';
    if (percent != m_ring->centerText())
        m_ring->setCenter(percent, tr("complete"), false);
}

void RunningPanel::setTitle(const QString& title)
{
    m_title->setFullText(title);
}

void RunningPanel::setDetail(const QString& detail)
{
    m_detail->setFullText(detail);
}

void RunningPanel::setTimeLeft(const QString& text)
{
    if (text == m_timeLeft->text())
        return;
    m_timeLeft->setText(text);
    m_timeLeft->setAccessibleName(text);
    m_timeLeft->setVisible(!text.isEmpty());
}

void RunningPanel::setCancelling(bool isCancelling)
{
    if (isCancelling != m_cancelling->isHidden())
        return;
    m_cancel->setEnabled(!isCancelling);
    m_cancelling->setVisible(isCancelling);
}

} // namespace keelbright

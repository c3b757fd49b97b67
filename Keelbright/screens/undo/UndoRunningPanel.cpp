#include "Keelbright/screens/undo/UndoRunningPanel.h"

#include "Keelbright/state/UndoTexts.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/Progress.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

UndoRunningPanel::UndoRunningPanel(QWidget* parent)
    : QWidget(parent)
    , m_bar(new BarProgress(tr("Undo progress"), Role::accent, this))
    , m_count(new Label({}, FontRole::body, Role::secondaryText, this))
    , m_cancelling(new Label(tr("Cancelling..."), FontRole::body, Role::secondaryText, this))
    , m_cancel(new Button(Button::Kind::bordered, tr("Cancel"), {}, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addStretch();
    column->addWidget(
        makeWrappingLabel(tr("Putting everything back…"), FontRole::headline, Role::primaryText, this));
    column->addWidget(m_bar);
    column->addWidget(m_count);
    column->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(12);
    buttons->addStretch();
    buttons->addWidget(m_cancelling);
    buttons->addWidget(m_cancel);
    column->addLayout(buttons);
    connect(m_cancel, &QPushButton::clicked, this, &UndoRunningPanel::cancelPressed);
    m_cancelling->hide();
}

void UndoRunningPanel::setProgress(qint64 tried, qint64 total)
{
    m_bar->setFraction(static_cast<double>(tried) / static_cast<double>(total));
    m_count->setText(UndoTexts::progress(tried, total));
}

void UndoRunningPanel::setCancelling(bool isCancelling)
{
    m_cancelling->setVisible(isCancelling);
    m_cancel->setEnabled(!isCancelling);
}

} // namespace keelbright

#include "Keelbright/screens/shared/SelectionSummary.h"

#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/ElidedLabel.h"

#include <QVBoxLayout>

namespace keelbright {

SelectionSummary::SelectionSummary(QWidget* parent)
    : QWidget(parent)
    , m_count(new ElidedLabel({}, FontRole::bodyStrong, Role::primaryText, Qt::ElideRight, this))
    , m_size(new ElidedLabel({}, FontRole::secondary, Role::mutedText, Qt::ElideRight, this))
{
    auto* texts = new QVBoxLayout(this);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(1);
    texts->addStretch();
    texts->addWidget(m_count);
    texts->addWidget(m_size);
    texts->addStretch();
    m_size->hide();
}

void SelectionSummary::setSelection(const QString& count, const QString& size)
{
    const QString whole = size.isEmpty() ? count : tr("%1, %2").arg(count, size);
    if (whole == accessibleName())
        return;
    m_count->setFullText(count);
    m_size->setFullText(size);
    m_size->setVisible(!size.isEmpty());
    if (isVisible())
        announce(*this, whole);
    else
        setAccessibleName(whole);
}

} // namespace keelbright

#include "Keelbright/screens/shared/PageSection.h"

#include "Keelbright/widgets/Headers.h"

#include <QVBoxLayout>

namespace keelbright {

PageSection::PageSection(SectionHeader* header, QWidget* parent)
    : QWidget(parent)
    , m_content(new QVBoxLayout)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(header);
    m_content->setSpacing(Metrics::cardSpacing);
    layout->addLayout(m_content);
}

} // namespace keelbright

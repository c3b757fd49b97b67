#include "Keelbright/screens/check/CheckStartPanel.h"

#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 56;

} // namespace

CheckStartPanel::CheckStartPanel(QWidget* parent)
    : QWidget(parent)
    , m_text(makeWrappingLabel({}, FontRole::body, Role::primaryText, this))
    , m_refusal(new Banner(Role::orange, u"exclamationmark.triangle.fill"_s, {}, this))
    , m_start(new Button(Button::Kind::primary, tr("Start Check"), {}, this))
    , m_list(new Button(Button::Kind::bordered, tr("Use a List of Checksums…"), {}, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::cardSpacing);
    auto* title = makeWrappingLabel(tr("Check Copies"), FontRole::toolbarTitle, Role::primaryText, this);
    auto* hint =
        makeWrappingLabel(tr("Where the originals are gone, a list of checksums that was saved after "
                             "an earlier check takes their place."),
                          FontRole::secondary, Role::secondaryText, this);
    for (Label* label : {title, m_text, hint})
        label->setAlignment(Qt::AlignCenter);
    column->addWidget(new SymbolLabel(u"checkmark.shield.fill"_s, iconSize, Role::accent, this), 0,
                      Qt::AlignHCenter);
    column->addWidget(title);
    column->addWidget(m_text);
    column->addSpacing(6);
    column->addWidget(m_refusal);
    column->addWidget(m_start, 0, Qt::AlignHCenter);
    column->addSpacing(18);
    column->addWidget(hint);
    column->addWidget(m_list, 0, Qt::AlignHCenter);
    connect(m_start, &QPushButton::clicked, this, &CheckStartPanel::startPressed);
    connect(m_list, &QPushButton::clicked, this, &CheckStartPanel::listPressed);
    m_refusal->hide();
}

void CheckStartPanel::setDriveName(const QString& name)
{
    m_text->setText(name.isEmpty()
                        ? tr("Reads every copy back from the backup drive and compares it with its original. "
                             "Nothing is changed.")
                        : tr("Reads every copy back from %1 and compares it with its original. Nothing is "
                             "changed.")
                              .arg(displayText(name)));
}

void CheckStartPanel::setRefusals(const QString& originals, const QString& list)
{
    m_start->setEnabled(originals.isEmpty());
    m_list->setEnabled(list.isEmpty());
    m_refusal->setTitle(displayText(originals));
    m_refusal->setVisible(!originals.isEmpty());
}

} // namespace keelbright

#include "Keelbright/screens/backup/PathRow.h"

#include "Keelbright/screens/backup/PathText.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int arrowSize = 16;

} // namespace

PathRow::PathRow(const QString& label, const QString& path, const QString& icon, Role color, QWidget* parent)
    : CardButton(Frame::none, parent)
{
    setAccessibleName(tr("%1, %2").arg(label, displayText(path)));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Metrics::cardPadding, 9, Metrics::cardPadding, 9);
    row->setSpacing(11);
    row->addWidget(new Tile(icon, color, Metrics::tile, this));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(new Label(label, FontRole::secondary, Role::secondaryText, this));
    auto* text = new PathText(label, path, this);
    texts->addWidget(text);
    row->addLayout(texts, 1);
    row->addWidget(new SymbolLabel(u"arrow.up.forward.square"_s, arrowSize, Role::secondaryText, this));
    connect(text, &PathText::clicked, this, &QAbstractButton::click);
}

} // namespace keelbright

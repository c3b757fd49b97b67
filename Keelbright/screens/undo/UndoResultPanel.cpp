#include "Keelbright/screens/undo/UndoResultPanel.h"

#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/undo/UndoFailureModel.h"
#include "Keelbright/state/UndoTexts.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 40;

} // namespace

UndoResultPanel::UndoResultPanel(const UndoResult& result, QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Metrics::cardSpacing);
    addSentences(result, *column);
    addFailures(result.failures, *column);
    addButtons(!result.failures.isEmpty(), *column);
}

void UndoResultPanel::addSentences(const UndoResult& result, QVBoxLayout& column)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(new SymbolLabel(u"exclamationmark.triangle.fill"_s, iconSize, Role::orange, this), 0,
                   Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addWidget(
        makeWrappingLabel(UndoTexts::headline(result), FontRole::headline, Role::primaryText, this));
    for (const QString& line : UndoTexts::details(result))
        texts->addWidget(makeWrappingLabel(line, FontRole::body, Role::secondaryText, this));
    texts->addStretch();
    row->addLayout(texts, 1);
    column.addLayout(row);
}

void UndoResultPanel::addFailures(const QList<UndoFailure>& failures, QVBoxLayout& column)
{
    if (failures.isEmpty()) {
        column.addStretch(1);
        return;
    }
    auto* model = new UndoFailureModel(this);
    model->setFailures(failures);
    auto* list = new RowListView(RowListView::Look::table, tr("Not put back"), this);
    list->setRowModel(model);
    column.addWidget(makeListCard(list, this), 1);
}

void UndoResultPanel::addButtons(bool hasList, QVBoxLayout& column)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    if (hasList) {
        auto* copy = new Button(Button::Kind::bordered, tr("Copy the list"), u"list.bullet"_s, this);
        connect(copy, &QPushButton::clicked, this, &UndoResultPanel::copyPressed);
        row->addWidget(copy);
    }
    auto* close = new Button(Button::Kind::bordered, tr("Close"), {}, this);
    connect(close, &QPushButton::clicked, this, &UndoResultPanel::closePressed);
    row->addStretch();
    row->addWidget(close);
    column.addLayout(row);
}

} // namespace keelbright

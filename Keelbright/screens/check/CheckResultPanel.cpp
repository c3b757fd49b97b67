#include "Keelbright/screens/check/CheckResultPanel.h"

#include "Keelbright/screens/check/CheckFindingModel.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/shared/NumberStrip.h"
#include "Keelbright/state/CheckTexts.h"
#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int iconSize = 40;

struct Outcome
{
    QString symbol;
    Role color = Role::green;
};

Outcome outcomeOf(const CheckReport& report)
{
    if (report.faults() > 0 || report.end == CheckReport::End::failed)
        return {u"xmark.octagon.fill"_s, Role::red};
    const bool isWhole = report.end == CheckReport::End::complete && report.isFromDrive &&
                         report.count(CopyVerdict::originalUnreadable) == 0;
    // A copy that the list does not know was not even read.
    const bool isProved = report.count(CopyVerdict::same) > 0 &&
                          (!report.isAgainstList || report.count(CopyVerdict::onlyOnDrive) == 0);
    return isWhole && isProved ? Outcome{u"checkmark.seal.fill"_s, Role::green}
                               : Outcome{u"exclamationmark.triangle.fill"_s, Role::orange};
}

} // namespace

CheckResultPanel::CheckResultPanel(const CheckReport& report, QWidget* parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this))
    , m_saved(new Banner(Role::green, u"checkmark.circle.fill"_s, {}, this))
    , m_notSaved(new Banner(Role::red, u"xmark.octagon.fill"_s, {}, this))
    , m_save(new Button(Button::Kind::bordered, tr("Save Checksums…"), {}, this))
    , m_findings(new CheckFindingModel(this))
{
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(Metrics::cardSpacing);
    addSentences(report);
    if (report.end != CheckReport::End::failed)
        addNumbers(report);
    for (Banner* banner : {m_saved, m_notSaved}) {
        banner->hide();
        m_column->addWidget(banner);
    }
    addFindings(report);
    addButtons(report);
}

void CheckResultPanel::addSentences(const CheckReport& report)
{
    const Outcome outcome = outcomeOf(report);
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(new SymbolLabel(outcome.symbol, iconSize, outcome.color, this), 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    texts->addWidget(makeWrappingLabel(displayText(CheckTexts::headline(report)), FontRole::headline,
                                       Role::primaryText, this));
    for (const QString& line : CheckTexts::details(report))
        texts->addWidget(makeWrappingLabel(line, FontRole::body, Role::secondaryText, this));
    texts->addStretch();
    row->addLayout(texts, 1);
    m_column->addLayout(row);
}

void CheckResultPanel::addNumbers(const CheckReport& report)
{
    const auto addStrip = [this, &report](const QList<std::tuple<QString, QString, CopyVerdict>>& cells) {
        auto* strip = new NumberStrip(this);
        for (const auto& [title, icon, verdict] : cells)
            strip->addCell(title, icon);
        for (qsizetype cell = 0; cell < cells.size(); ++cell)
            strip->setValue(cell, CheckTexts::number(report.count(std::get<CopyVerdict>(cells.at(cell)))));
        m_column->addWidget(strip);
    };
    using enum CopyVerdict;
    addStrip({{tr("Equal"), u"checkmark.circle.fill"_s, same},
              {tr("Different"), u"exclamationmark.triangle.fill"_s, differs},
              {tr("Unreadable"), u"xmark.octagon.fill"_s, unreadable}});
    if (report.isAgainstList)
        addStrip({{tr("Written Since"), u"arrow.clockwise"_s, changedSince},
                  {tr("Not in the List"), u"externaldrive.fill"_s, onlyOnDrive}});
    else
        addStrip({{tr("Changed Since"), u"arrow.clockwise"_s, changedSince},
                  {tr("Only on the Drive"), u"externaldrive.fill"_s, onlyOnDrive},
                  {tr("Not Backed Up Yet"), u"minus.circle"_s, notBackedUp}});
}

void CheckResultPanel::addFindings(const CheckReport& report)
{
    if (report.findings.isEmpty()) {
        m_column->addStretch(1);
        return;
    }
    auto* list = new RowListView(RowListView::Look::table, tr("Findings"), this);
    m_findings->setReport(report);
    list->setRowModel(m_findings);
    m_column->addWidget(makeListCard(list, this), 1);
    const auto reveal = [this](int row) { Q_EMIT revealPressed(m_findings->itemAt(row)); };
    connect(list, &RowListView::actionPressed, this, reveal);
    connect(list, &RowListView::opened, this, reveal);
}

void CheckResultPanel::addButtons(const CheckReport& report)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    if (!report.findings.isEmpty()) {
        auto* copy = new Button(Button::Kind::bordered, tr("Copy the list"), u"list.bullet"_s, this);
        connect(copy, &QPushButton::clicked, this, &CheckResultPanel::copyPressed);
        row->addWidget(copy);
    }
    auto* again = new Button(Button::Kind::bordered, tr("Check Again…"), {}, this);
    connect(m_save, &QPushButton::clicked, this, &CheckResultPanel::savePressed);
    connect(again, &QPushButton::clicked, this, &CheckResultPanel::againPressed);
    row->addStretch();
    row->addWidget(m_save);
    row->addWidget(again);
    m_column->addLayout(row);
}

void CheckResultPanel::setCanSave(bool canSave)
{
    m_save->setVisible(canSave);
}

void CheckResultPanel::setSavingNote(const QString& note, bool hasFailed)
{
    Banner* shown = hasFailed ? m_notSaved : m_saved;
    Banner* other = hasFailed ? m_saved : m_notSaved;
    other->hide();
    shown->setTitle(displayText(note));
    shown->setVisible(!note.isEmpty());
}

} // namespace keelbright

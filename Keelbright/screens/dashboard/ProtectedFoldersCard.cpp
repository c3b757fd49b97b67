#include "Keelbright/screens/dashboard/ProtectedFoldersCard.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowPadding = Metrics::cardPadding;
constexpr int firstSourceRow = 1; ///< below the card's head

QWidget* makeMoreRow(qsizetype count)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(rowPadding, 10, rowPadding, 10);
    layout->addSpacing(Metrics::tile + 12);
    layout->addWidget(new Label(ProtectedFoldersCard::tr("+ %n more folders", nullptr, pluralNumber(count)),
                                FontRole::secondary, Role::secondaryText, row));
    layout->addStretch();
    return row;
}

/// Has the text of the link at the end of the row end where the frames of other rows' buttons end.
void alignLink(QLayout& row)
{
    QMargins margins = row.contentsMargins();
    margins.setRight(margins.right() - Button::linkPadding);
    row.setContentsMargins(margins);
}

} // namespace

ProtectedFoldersCard::ProtectedFoldersCard(AppState& state, QWidget* parent)
    : RowList(parent)
    , m_state(state)
{
    addHeader();
    addDestinationRow();
    addReportRow();
    redraw();
}

void ProtectedFoldersCard::addHeader()
{
    auto* header = new SectionHeader(tr("Protected Folders"), {}, Role::accent, this);
    header->setContentsMargins(rowPadding, 6, rowPadding - Button::linkPadding, 6);
    auto* manage = new Button(Button::Kind::link, tr("Manage"), {}, header);
    connect(manage, &QPushButton::clicked, this,
            [this] { m_state.setSelectedScreen(Screen::protectedItems); });
    header->addTrailing(manage);
    addRow(header);
}

void ProtectedFoldersCard::addDestinationRow()
{
    m_destinationRow = new RowWidget(new Tile(u"externaldrive.fill"_s, Role::secondaryText), {}, {},
                                     RowWidget::Detail::text, this);
    m_notConnected = new Tag(tr("Not connected"), Role::orange, m_destinationRow);
    m_destinationRow->addBesideTitle(m_notConnected);
    auto* change = new Button(Button::Kind::bordered, tr("Change"), {}, m_destinationRow);
    change->setCompact(true);
    change->setAccessibleDescription(tr("Choose another backup destination"));
    connect(change, &QPushButton::clicked, &m_state, &AppState::pickDestination);
    m_destinationRow->addTrailing(change);
    addRow(m_destinationRow);
}

void ProtectedFoldersCard::addReportRow()
{
    m_reportTile = new Tile(u"checkmark.circle.fill"_s, Role::green);
    m_reportRow = new RowWidget(m_reportTile, {}, {}, RowWidget::Detail::text, this);
    auto* view = new Button(Button::Kind::link, tr("View Report"), {}, m_reportRow);
    connect(view, &QPushButton::clicked, this, [this] { m_state.setSelectedScreen(Screen::backupReport); });
    m_reportRow->addTrailing(view);
    alignLink(*m_reportRow->layout());
    addRow(m_reportRow);
}

void ProtectedFoldersCard::redraw()
{
    redrawSources();
    redrawDestination();
    redrawReport();
    setVisible(m_state.selectedDestination().has_value());
}

void ProtectedFoldersCard::redrawSources()
{
    const QList<BackupSource> preview = m_state.previewSources();
    const qsizetype more = m_state.allEnabledSources().size() - preview.size();
    QList<FileURL> urls;
    for (const BackupSource& source : preview)
        urls.append(source.url);
    if (urls == m_shownSources && more == m_moreSources)
        return;
    const qsizetype shownRows = m_shownSources.size() + (m_moreSources > 0 ? 1 : 0);
    for (qsizetype i = 0; i < shownRows; ++i) {
        const std::unique_ptr<QLayoutItem> item(content()->takeAt(firstSourceRow));
        delete item->widget();
    }
    int index = firstSourceRow;
    for (const BackupSource& source : preview)
        content()->insertWidget(index++, new SourceRowCard(source));
    if (more > 0)
        content()->insertWidget(index, makeMoreRow(more));
    m_shownSources = urls;
    m_moreSources = more;
}

void ProtectedFoldersCard::redrawDestination()
{
    const auto& destination = m_state.selectedDestination();
    if (!destination)
        return;
    m_destinationRow->setTitle(destination->displayName());
    m_destinationRow->setToolTip(toolTipText(destination->path()));
    m_notConnected->setVisible(m_state.isDestinationAway());
}

void ProtectedFoldersCard::redrawReport()
{
    const auto& report = m_state.lastReport();
    m_reportRow->setVisible(report.has_value());
    if (!report)
        return;
    const bool isClean = report->errors.isEmpty();
    m_reportTile->setKey(isClean ? u"checkmark.circle.fill"_s : u"exclamationmark.circle.fill"_s);
    m_reportTile->setColorRole(isClean ? Role::green : Role::orange);
    m_reportRow->setTitle(isClean ? tr("Last backup completed successfully")
                                  : tr("Last backup had warnings"));
    m_reportRow->setDetail(
        tr("%n files · %1", nullptr, pluralNumber(report->filesCopied)).arg(report->copiedSizeFormatted()));
}

} // namespace keelbright

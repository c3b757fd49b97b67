#include "Keelbright/screens/BackupReportView.h"

#include "Keelbright/screens/backup/PathRow.h"
#include "Keelbright/screens/shared/CardGridLayout.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/state/StoredTexts.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/StatusCard.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype shownErrors = 30;

QWidget* makeStatusCards(const BackupReport& report)
{
    auto* cards = new QWidget;
    auto* grid = new CardGridLayout(cards);
    grid->addWidget(new StatusCard(BackupReportView::tr("Files Copied"), QString::number(report.filesCopied),
                                   u"doc.fill"_s, Role::green));
    grid->addWidget(new StatusCard(BackupReportView::tr("Data Copied"),
                                   L10n::Formatters::bytes(report.bytesCopied), u"internaldrive"_s,
                                   Role::accent));
    grid->addWidget(new StatusCard(BackupReportView::tr("Duration"),
                                   QString::number(report.durationSeconds(), 'f', 1) + u's', u"timer"_s,
                                   Role::purple));
    grid->addWidget(new StatusCard(BackupReportView::tr("Skipped"), QString::number(report.filesSkipped),
                                   u"minus.circle"_s,
                                   report.filesSkipped > 0 ? Role::orange : Role::secondaryText));
    return cards;
}

QWidget* makeSourceRow(const QString& path)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(14, 10, 14, 10);
    layout->setSpacing(11);
    layout->addWidget(new SymbolLabel(u"folder.fill"_s, 17, Role::accent, row));
    layout->addWidget(new ElidedLabel(path, FontRole::body, Role::primaryText, Qt::ElideMiddle, row), 1);
    return row;
}

QWidget* makeSources(const BackupReport& report)
{
    auto* section = new PageSection(new SectionHeader(BackupReportView::tr("Source Folders")));
    auto* rows = new RowList(section);
    for (const QString& path : report.sourcePaths)
        rows->addRow(makeSourceRow(path));
    section->content()->addWidget(rows);
    return section;
}

QWidget* makeErrors(const BackupReport& report)
{
    const QString count = QString::number(report.errors.size());
    auto* banner = new Banner(Role::orange, u"exclamationmark.triangle.fill"_s,
                              BackupReportView::tr("Skipped Files (%1)").arg(count));
    QStringList lines;
    for (const QString& line : report.errors.mid(0, shownErrors))
        lines.append(StoredTexts::shownError(line));
    if (report.errors.size() > shownErrors)
        lines.append(BackupReportView::tr("… and %n more. See full JSON report on disk.", nullptr,
                                          pluralNumber(report.errors.size() - shownErrors)));
    banner->setLines(lines);
    return banner;
}

} // namespace

BackupReportView::BackupReportView(AppState& state, Workspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
    , m_workspace(workspace)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    connect(&m_state, &AppState::lastReportChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state.engine(), &BackupEngine::lastReportChanged, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &BackupReportView::redraw);
    redraw();
}

const std::optional<BackupReport>& BackupReportView::report() const
{
    return m_state.lastReport() ? m_state.lastReport() : m_state.engine().lastReport();
}

void BackupReportView::redraw()
{
    const std::optional<BackupReport>& shown = report();
    const std::optional<QUuid> id = shown ? std::optional(shown->id) : std::nullopt;
    if (m_content != nullptr && id == m_shownReport)
        return;
    if (m_content != nullptr) {
        // A click on one of its buttons may still be running.
        m_content->hide();
        m_content->deleteLater();
    }
    m_shownReport = id;
    if (shown)
        m_content = makeContent(*shown);
    else
        m_content = new EmptyStateView(tr("No Report Yet"), tr("Run a backup to generate a report."),
                                       u"doc.text.magnifyingglass"_s);
    layout()->addWidget(m_content);
}

QWidget* BackupReportView::makeContent(const BackupReport& report)
{
    auto* page = new Page;
    page->content()->addWidget(makeHeader(report));
    page->content()->addWidget(makeStatusCards(report));
    page->content()->addWidget(makeSources(report));
    page->content()->addWidget(makeLocations(report));
    if (!report.errors.isEmpty())
        page->content()->addWidget(makeErrors(report));
    page->content()->addStretch();
    return page;
}

QWidget* BackupReportView::makeHeader(const BackupReport& report)
{
    const QString started =
        DateFormatter::string(report.startedAt, DateFormatter::Style::long_, DateFormatter::Style::short_);
    auto* header = new PageHeader(tr("Backup Report"), started);
    auto* open = new Button(Button::Kind::bordered, tr("Open in Finder"), u"folder"_s, header);
    connect(open, &QPushButton::clicked, this,
            [this, path = report.destinationPath] { m_workspace.open(FileURL::fromPath(path)); });
    header->addAction(open);
    return header;
}

QWidget* BackupReportView::makeLocations(const BackupReport& report)
{
    auto* section = new PageSection(new SectionHeader(tr("Backup Location")));
    auto* rows = new RowList(section);
    const auto addRow = [&](const QString& label, const QString& path, const QString& icon, Role color,
                            const QString& opened) {
        auto* row = new PathRow(label, path, icon, color, rows);
        connect(row, &QAbstractButton::clicked, this,
                [this, opened] { openPersonalFiles(m_workspace, opened); });
        rows->addRow(row);
    };
    addRow(tr("Personal Files"), report.personalFilesPath, u"folder.fill"_s, Role::accent,
           report.personalFilesPath);
    addRow(tr("Backup Root"), report.destinationPath, u"externaldrive.fill"_s, Role::secondaryText,
           report.destinationPath);
    const QString manifestFolder = FileURL::fromPath(report.manifestPath).deletingLastPathComponent().path();
    const QString manifest = report.manifestPath == u"Failed"_s ? tr("Failed") : report.manifestPath;
    addRow(tr("Recovery Manifest"), manifest, u"doc.badge.checkmark"_s, Role::teal, manifestFolder);
    section->content()->addWidget(rows);
    return section;
}

} // namespace keelbright

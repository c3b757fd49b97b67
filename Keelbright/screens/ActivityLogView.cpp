#include "Keelbright/screens/ActivityLogView.h"

#include "Keelbright/screens/review/ActivityLogModel.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/shared/ScreenCommand.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QShowEvent>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

QString title(Kind kind)
{
    return QCoreApplication::translate("ActivityEntry", ActivityEntry::rawValue(kind).toUtf8().constData());
}

QList<MenuButton::Choice> filterChoices()
{
    QList<MenuButton::Choice> choices{{.text = ActivityLogView::tr("All")}};
    for (const Kind kind : ActivityEntry::allKinds())
        choices.append({.text = title(kind),
                        .symbol = ActivityEntry::icon(kind),
                        .startsGroup = kind == ActivityEntry::allKinds().first()});
    return choices;
}

} // namespace

ActivityLogView::ActivityLogView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_vm(context.state.services().activityStore, context.files)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addToolbar();
    addStates();
    redraw();
}

QString ActivityLogView::summaryLine(const QList<ActivityEntry>& entries)
{
    if (entries.isEmpty())
        return tr("No actions recorded");
    const qint64 total = sumOfBytes(entries, &ActivityEntry::bytesAffected);
    const QString line = entries.size() == 1
                             ? tr("1 action · %1 freed total")
                             : tr("%n actions · %1 freed total", nullptr, pluralNumber(entries.size()));
    return line.arg(L10n::Formatters::bytes(total));
}

void ActivityLogView::addToolbar()
{
    m_header = new PageHeader(tr("Activity Log"), {});
    m_header->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                                 Metrics::sectionSpacing);
    m_filter = new MenuButton(Button::Kind::bordered, tr("Filter"), u"line.3.horizontal.decrease.circle"_s,
                              filterChoices(), m_header);
    m_filter->setShowsChoice(tr("Filter"));
    m_filter->setToolTip(tr("Filter"));
    auto* exportButton = new Button(Button::Kind::bordered, tr("Export"), u"square.and.arrow.up"_s, m_header);
    exportButton->setToolTip(tr("Export log as CSV"));
    auto* clearButton = new Button(Button::Kind::icon, tr("Clear activity log"), u"trash"_s, m_header);
    connect(m_filter, &MenuButton::chosen, this, [this](int index) {
        setFilterKind(index == 0 ? std::nullopt : std::optional(ActivityEntry::allKinds().at(index - 1)));
    });
    connect(exportButton, &QPushButton::clicked, this, [this] { m_vm.exportCSV(); });
    offerCommand(*this, ScreenCommand::exportList, [this] { m_vm.exportCSV(); });
    connect(clearButton, &QPushButton::clicked, this, &ActivityLogView::clear);
    for (QWidget* action : {static_cast<QWidget*>(m_filter), static_cast<QWidget*>(exportButton),
                            static_cast<QWidget*>(clearButton)})
        m_header->addAction(action);
    layout()->addWidget(m_header);
}

void ActivityLogView::addStates()
{
    m_empty = new EmptyStateView(
        tr("No activity yet"),
        tr("Actions from Backup, Junk Cleaner, Organizer, and App Manager will appear here."),
        u"clock.arrow.circlepath"_s);
    m_noMatch = makeWrappingLabel({}, FontRole::body, Role::secondaryText);
    m_noMatch->setAlignment(Qt::AlignCenter);
    m_model = new ActivityLogModel(this);
    m_list = new RowListView(RowListView::Look::table, tr("Activity Log"));
    m_list->setRowModel(m_model);
    m_listPage = makeListCard(m_list, this);
    m_listPage->setContentsMargins(Metrics::pageMarginX, 0, Metrics::pageMarginX, Metrics::pageMarginY);
    auto* area = new QWidget;
    m_states = new QStackedLayout(area);
    for (QWidget* state : {static_cast<QWidget*>(m_empty), static_cast<QWidget*>(m_noMatch), m_listPage})
        m_states->addWidget(state);
    qobject_cast<QVBoxLayout*>(layout())->addWidget(area, 1);
}

void ActivityLogView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_vm.load();
    redraw();
}

void ActivityLogView::setFilterKind(std::optional<Kind> kind)
{
    m_filterKind = kind;
    m_filter->setCurrentIndex(kind ? static_cast<int>(ActivityEntry::allKinds().indexOf(*kind)) + 1 : 0);
    redraw();
    if (m_states->currentWidget() == m_noMatch)
        announce(*m_noMatch, m_noMatch->text());
}

QList<ActivityEntry> ActivityLogView::filtered() const
{
    if (!m_filterKind)
        return m_vm.entries();
    QList<ActivityEntry> entries;
    std::ranges::copy_if(m_vm.entries(), std::back_inserter(entries),
                         [this](const ActivityEntry& entry) { return entry.kind == m_filterKind; });
    return entries;
}

void ActivityLogView::clear()
{
    m_vm.clear();
    redraw();
    announce(*m_empty, tr("No activity yet"));
}

void ActivityLogView::redraw()
{
    m_header->setSubtitle(summaryLine(m_vm.entries()));
    const QList<ActivityEntry> shown = filtered();
    m_model->setEntries(shown, m_context.state.now());
    fitListCard(m_list);
    if (m_vm.entries().isEmpty()) {
        m_states->setCurrentWidget(m_empty);
    } else if (m_filterKind && shown.isEmpty()) {
        m_noMatch->setText(tr("No %1 entries").arg(title(*m_filterKind)));
        m_states->setCurrentWidget(m_noMatch);
    } else {
        m_states->setCurrentWidget(m_listPage);
    }
}

} // namespace keelbright

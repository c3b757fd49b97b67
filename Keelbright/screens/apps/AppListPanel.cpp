#include "Keelbright/screens/apps/AppListPanel.h"

#include "Keelbright/screens/apps/UsageLook.h"
#include "Keelbright/screens/shared/ScreenCommand.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/SearchField.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = Metrics::panelPadding;

QList<MenuButton::Choice> sortChoices()
{
    QList<MenuButton::Choice> choices;
    for (const SortOption option : allSortOptions())
        choices.append({QCoreApplication::translate("SortOption", rawValue(option).toUtf8().constData())});
    return choices;
}

/// "All Apps", then one choice for each category.
QList<MenuButton::Choice> categoryChoices()
{
    QList<MenuButton::Choice> choices{{AppListPanel::tr("All Apps")}};
    for (const UsageCategory category : allUsageCategories())
        choices.append({.text = lookOf(category).label, .startsGroup = choices.size() == 1});
    return choices;
}

} // namespace

AppListPanel::AppListPanel(AppState& state, AppIcons& icons, QWidget* parent)
    : Ground(Role::window, parent)
    , m_state(state)
    , m_model(icons)
{
    addHeader();
    addFilterBar();
    addStates();
    connect(&m_state, &AppState::scannedAppsChanged, this, [this] { m_areAppsStale = true; });
    connect(&m_state, &AppState::scannedAppsChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state, &AppState::isAppScanningChanged, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &AppListPanel::redraw);
    redraw();
}

void AppListPanel::addHeader()
{
    m_header = new PanelHeader(tr("App Manager"), {}, {}, Role::accent, this);
    auto* sort = new MenuButton(Button::Kind::plainIcon, tr("Sort apps"), u"arrow.up.arrow.down"_s,
                                sortChoices(), m_header);
    connect(sort, &MenuButton::chosen, this, [this](int choice) {
        AppFilter filter = m_model.filter();
        filter.sortBy = allSortOptions().at(choice);
        setFilter(filter);
    });
    m_rescan = new Button(Button::Kind::plainIcon, tr("Re-scan apps"), u"arrow.clockwise"_s, m_header);
    connect(m_rescan, &QPushButton::clicked, this, &AppListPanel::scanRequested);
    m_header->addTrailing(sort);
    m_header->addTrailing(m_rescan);
    content()->addWidget(m_header);
}

void AppListPanel::addFilterBar()
{
    constexpr int symbolSize = 18;
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(margin, 0, margin, 10);
    bar->setSpacing(8);
    bar->addWidget(
        new SymbolLabel(u"line.3.horizontal.decrease.circle"_s, symbolSize, Role::secondaryText, this));
    m_category = new MenuButton(Button::Kind::bordered, {}, {}, categoryChoices(), this);
    m_category->setShowsChoice(tr("Filter"));
    connect(m_category, &MenuButton::chosen, this, &AppListPanel::setCategory);
    bar->addWidget(m_category);
    m_clearFilter = new Button(Button::Kind::plainIcon, tr("Clear filter"), u"xmark.circle.fill"_s, this);
    m_clearFilter->hide();
    connect(m_clearFilter, &QPushButton::clicked, this, [this] {
        m_category->setCurrentIndex(0);
        // The pressed button is about to be hidden.
        m_category->setFocus(Qt::TabFocusReason);
        setCategory(0);
    });
    bar->addWidget(m_clearFilter);
    bar->addStretch();
    content()->addLayout(bar);
}

void AppListPanel::addStates()
{
    m_states = new QStackedWidget(this);
    m_scanning = new BusyState(tr("Scanning applications…"), tr("Reading Spotlight metadata"));
    m_empty = makeEmptyState();
    m_listed = makeList();
    for (QWidget* state : {m_scanning, m_empty, m_listed})
        m_states->addWidget(state);
    content()->addWidget(m_states, 1);
}

QWidget* AppListPanel::makeEmptyState()
{
    auto* empty = new EmptyStateView(tr("No apps scanned yet"), {}, u"app.badge.checkmark"_s);
    m_scanNow = new Button(Button::Kind::primary, tr("Scan Now"), {}, empty);
    connect(m_scanNow, &QPushButton::clicked, this, &AppListPanel::scanRequested);
    empty->addAction(m_scanNow);
    return empty;
}

QWidget* AppListPanel::makeList()
{
    auto* listed = new QWidget;
    auto* column = new QVBoxLayout(listed);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    m_search = new SearchField(tr("Search apps"), listed);
    offerCommand(*m_search->findAction(), ScreenCommand::find);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        AppFilter filter = m_model.filter();
        filter.searchText = text;
        setFilter(filter);
    });
    auto* searchLine = new QHBoxLayout;
    searchLine->setContentsMargins(margin, 0, margin, 0);
    searchLine->addWidget(m_search);
    column->addLayout(searchLine);
    m_list = new RowListView(RowListView::Look::panel, tr("Applications"), listed);
    m_list->setRowModel(&m_model);
    connect(m_list, &RowListView::currentRowChanged, this,
            [this](int row) { Q_EMIT appSelected(m_model.itemAt(row)); });
    connect(m_list, &RowListView::currentRowCleared, this, &AppListPanel::selectionCleared);
    connect(m_list, &RowListView::actionPressed, this, &AppListPanel::perform);
    column->addWidget(m_list, 1);
    return listed;
}

void AppListPanel::setSelectedApp(const std::optional<AppInfo>& app)
{
    m_selectedApp = app ? std::optional(app->id) : std::nullopt;
    m_list->setCurrentRow(m_selectedApp ? m_model.rowOf(*m_selectedApp) : -1);
}

void AppListPanel::focusList()
{
    m_list->setFocus(Qt::OtherFocusReason);
}

void AppListPanel::setCategory(int choice)
{
    AppFilter filter = m_model.filter();
    filter.category = choice > 0 ? std::optional(allUsageCategories().at(choice - 1)) : std::nullopt;
    m_clearFilter->setVisible(choice > 0);
    setFilter(filter);
    announce(*m_header, caption());
}

void AppListPanel::setFilter(const AppFilter& filter)
{
    m_model.setFilter(filter);
    m_list->setCurrentRow(m_selectedApp ? m_model.rowOf(*m_selectedApp) : -1);
    m_header->setSubtitle(caption());
}

void AppListPanel::perform(int row, RowActionId action)
{
    const AppInfo app = m_model.itemAt(row);
    if (action == RowActionId::remove)
        Q_EMIT removalRequested(app);
    else if (action == RowActionId::reveal)
        Q_EMIT revealRequested(app);
}

QString AppListPanel::caption() const
{
    const qsizetype all = m_state.scannedApps().size();
    if (all == 0)
        return {};
    return tr("%1 of %n apps", nullptr, pluralNumber(all))
        .arg(QString::number(m_model.filteredApps().size()));
}

void AppListPanel::redraw()
{
    m_focus.redraw(m_state.isAppScanning(), [this] { redrawContent(); });
}

void AppListPanel::redrawContent()
{
    if (std::exchange(m_areAppsStale, false)) {
        m_model.setApps(m_state.scannedApps());
        m_list->setCurrentRow(m_selectedApp ? m_model.rowOf(*m_selectedApp) : -1);
    }
    m_header->setSubtitle(caption());
    if (m_state.isAppScanning())
        showState(m_scanning);
    else
        showState(m_state.scannedApps().isEmpty() ? m_empty : m_listed);
    m_rescan->setEnabled(!m_state.isAppScanning());
    const bool hasEnded = m_wasScanning && !m_state.isAppScanning();
    m_wasScanning = m_state.isAppScanning();
    if (hasEnded)
        announce(*m_header, m_state.scannedApps().isEmpty() ? tr("No apps scanned yet") : caption());
}

void AppListPanel::showState(QWidget* state)
{
    // A scan hides what has the focus. What is shown after the scan gets it back.
    if (m_states->currentWidget() == state)
        return;
    m_restoresFocus = m_restoresFocus || m_states->currentWidget()->isAncestorOf(QApplication::focusWidget());
    m_states->setCurrentWidget(state);
    if (!m_restoresFocus || state == m_scanning)
        return;
    m_restoresFocus = false;
    (state == m_listed ? static_cast<QWidget*>(m_list) : m_scanNow)->setFocus(Qt::OtherFocusReason);
}

} // namespace keelbright

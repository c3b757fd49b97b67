#include "Keelbright/screens/shell/SidebarView.h"

#include "Keelbright/screens/shell/SidebarDelegate.h"
#include "Keelbright/screens/shell/SidebarModel.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/rows/AccessibleRows.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QListView>
#include <QPainter>
#include <QVBoxLayout>

namespace keelbright {

const QList<std::pair<QString, QList<Screen>>>& SidebarView::sections()
{
    static const QList<std::pair<QString, QList<Screen>>> sections{
        {tr("Protect"), {Screen::dashboard, Screen::protectedItems}},
        {tr("Clean"), {Screen::appManager, Screen::junkCleaner, Screen::storageBrowser}},
        {tr("Organise"), {Screen::organizer}},
        {tr("Review"),
         {Screen::scanResults, Screen::activityLog, Screen::backupReport, Screen::restoreBrowser,
          Screen::recovery}},
        {QString(), {Screen::settings}},
    };
    return sections;
}

SidebarView::SidebarView(AppState& state, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
    , m_model(new SidebarModel(this))
    , m_list(new QListView(this))
{
    setMinimumWidth(minimumWidthOfSidebar);
    setMaximumWidth(maximumWidthOfSidebar);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 17, 0, 12);
    layout->setSpacing(10);
    auto* title = new Label(tr("Keel Bright"), FontRole::sectionTitle, Role::primaryText, this);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 15 / 14);
    title->setFont(font);
    title->setContentsMargins(20, 0, 20, 0);
    layout->addWidget(title);
    layout->addWidget(m_list, 1);

    useAccessibleRows(*m_list);
    m_list->setAccessibleName(tr("Screens"));
    m_list->setModel(m_model);
    m_list->setItemDelegate(new SidebarDelegate(m_list));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setMouseTracking(true);
    m_list->viewport()->setAutoFillBackground(false);
    // Not the current row, because a screen reader selects a row without making it current.
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (m_isSelectingShownScreen)
            return;
        const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
        if (selected.isEmpty())
            selectShownScreen(); // a click beside the rows, or one with Control on the marked row
        else
            m_state.setSelectedScreen(m_model->screenAt(selected.first()));
    });
    connect(&state, &AppState::selectedScreenChanged, this, &SidebarView::selectShownScreen);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
    selectShownScreen();
}

void SidebarView::selectShownScreen()
{
    const QModelIndex index = m_model->indexOf(m_state.selectedScreen());
    if (index.isValid() && m_list->selectionModel()->isSelected(index))
        return;
    m_isSelectingShownScreen = true;
    // Clears the selection only: the current row stays, so that the focus frame keeps a place.
    if (index.isValid())
        m_list->setCurrentIndex(index);
    else
        m_list->clearSelection();
    m_isSelectingShownScreen = false;
}

void SidebarView::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Theme::instance().color(Role::sidebar));
}

} // namespace keelbright

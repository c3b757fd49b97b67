#include "Keelbright/screens/storage/StorageHeader.h"

#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/SegmentedControl.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int spacing = 8;
constexpr int viewModeWidth = 260;
constexpr int minimumTitleWidth = 190;

template <typename Choice> QString shown(Choice choice)
{
    return QCoreApplication::translate("StorageBrowserView",
                                       StorageBrowserModel::rawValue(choice).toUtf8().constData());
}

QHBoxLayout* makeRow(QWidget* parent = nullptr)
{
    auto* row = new QHBoxLayout(parent);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

SegmentedControl* makeViewMode(QWidget* parent)
{
    QStringList modes;
    for (const StorageBrowserModel::ViewMode mode : StorageBrowserModel::allViewModes())
        modes.append(shown(mode));
    auto* control = new SegmentedControl(StorageHeader::tr("View"), modes, parent);
    control->setFixedWidth(viewModeWidth);
    return control;
}

MenuButton* makeSortOrder(QWidget* parent)
{
    QList<MenuButton::Choice> orders;
    for (const StorageBrowserModel::SortOrder order : StorageBrowserModel::allSortOrders())
        orders.append({.text = shown(order)});
    return new MenuButton(Button::Kind::bordered, {}, u"arrow.up.arrow.down"_s, orders, parent);
}

} // namespace

StorageHeader::StorageHeader(StorageBrowserModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_title(new ElidedLabel(tr("Storage Browser"), FontRole::toolbarTitle, Role::primaryText,
                              Qt::ElideRight, this))
    , m_subtitle(new ElidedLabel({}, FontRole::body, Role::secondaryText, Qt::ElideRight, this))
    , m_viewControls(new QWidget(this))
    , m_viewMode(makeViewMode(m_viewControls))
    , m_sortOrder(makeSortOrder(m_viewControls))
    , m_actions(new QWidget(this))
    , m_organise(new Button(Button::Kind::bordered, tr("Organise"), u"folder.badge.gearshape"_s, m_actions))
    , m_choose(new Button(Button::Kind::bordered, tr("Choose Folder"), u"folder.badge.plus"_s, m_actions))
    , m_firstRow(makeRow())
    , m_secondRow(makeRow())
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    fillViewControls();
    fillActions();
    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    titles->addWidget(m_title);
    titles->addWidget(m_subtitle);
    m_firstRow->addLayout(titles, 1);
    m_firstRow->addWidget(m_viewControls);
    m_firstRow->addWidget(m_actions);
    layout->addLayout(m_firstRow);
    layout->addLayout(m_secondRow);
    m_secondRow->addStretch(1);
    redraw();
}

void StorageHeader::fillViewControls()
{
    QHBoxLayout* row = makeRow(m_viewControls);
    row->addWidget(m_viewMode);
    row->addWidget(m_sortOrder);
    connect(m_viewMode, &SegmentedControl::chosen, this,
            [this](int index) { m_model.setViewMode(StorageBrowserModel::allViewModes().at(index)); });
    connect(m_sortOrder, &MenuButton::chosen, this,
            [this](int index) { m_model.setSortOrder(StorageBrowserModel::allSortOrders().at(index)); });
}

void StorageHeader::fillActions()
{
    m_organise->setToolTip(tr("Open this folder in Smart Organizer"));
    QHBoxLayout* row = makeRow(m_actions);
    row->addWidget(m_organise);
    row->addWidget(m_choose);
    connect(m_organise, &QPushButton::clicked, this, [this] {
        if (const std::optional<FileURL> folder = m_model.currentURL())
            m_model.organiseCurrentFolder(*folder);
    });
    connect(m_choose, &QPushButton::clicked, &m_model, &StorageBrowserModel::pickFolder);
}

QString StorageHeader::subtitle() const
{
    const std::optional<FileURL> url = m_model.currentURL();
    if (!url)
        return tr("Navigate any folder to see what's taking up space.");
    return tr("%1 in %2").arg(L10n::Formatters::bytes(m_model.currentBytes()), url->lastPathComponent());
}

void StorageHeader::redraw()
{
    const bool isBrowsing = m_model.currentURL().has_value();
    m_subtitle->setFullText(subtitle());
    m_viewMode->setCurrentIndex(
        static_cast<int>(StorageBrowserModel::allViewModes().indexOf(m_model.viewMode())));
    m_sortOrder->setCurrentIndex(
        static_cast<int>(StorageBrowserModel::allSortOrders().indexOf(m_model.sortOrder())));
    m_sortOrder->setCaption(tr("Sort: %1").arg(shown(m_model.sortOrder())));
    m_sortOrder->setVisible(m_model.viewMode() == StorageBrowserModel::ViewMode::list);
    m_viewControls->setVisible(isBrowsing);
    m_organise->setVisible(isBrowsing);
    arrange();
}

QSize StorageHeader::minimumSizeHint() const
{
    return {minimumTitleWidth + m_actions->sizeHint().width(), QWidget::minimumSizeHint().height()};
}

void StorageHeader::arrange()
{
    // With room for the sort order in every view, so that choosing a view moves nothing.
    const int controls = viewModeWidth + spacing + m_sortOrder->sizeHint().width() + spacing;
    const int needed = minimumTitleWidth + controls + m_actions->sizeHint().width();
    const bool isInOneRow = m_viewControls->isHidden() || width() >= needed;
    if (isInOneRow == m_isInOneRow)
        return;
    m_isInOneRow = isInOneRow;
    if (isInOneRow) {
        m_secondRow->removeWidget(m_viewControls);
        m_firstRow->insertWidget(1, m_viewControls);
    } else {
        m_firstRow->removeWidget(m_viewControls);
        m_secondRow->insertWidget(0, m_viewControls);
    }
    updateGeometry();
}

void StorageHeader::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
}

} // namespace keelbright

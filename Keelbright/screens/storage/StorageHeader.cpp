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
constexpr int leastWords = 190;

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

} // namespace

StorageHeader::StorageHeader(StorageBrowserModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_title(new ElidedLabel(tr("Storage Browser"), FontRole::toolbarTitle, Role::primaryText,
                              Qt::ElideRight, this))
    , m_subtitle(new ElidedLabel({}, FontRole::body, Role::secondaryText, Qt::ElideRight, this))
    , m_viewControls(makeViewControls())
    , m_actions(makeActions())
    , m_firstRow(makeRow())
    , m_secondRow(makeRow())
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    auto* words = new QVBoxLayout;
    words->setSpacing(2);
    words->addWidget(m_title);
    words->addWidget(m_subtitle);
    m_firstRow->addLayout(words, 1);
    m_firstRow->addWidget(m_viewControls);
    m_firstRow->addWidget(m_actions);
    layout->addLayout(m_firstRow);
    layout->addLayout(m_secondRow);
    m_secondRow->addStretch(1);
    redraw();
}

QWidget* StorageHeader::makeViewControls()
{
    auto* controls = new QWidget(this);
    QStringList modes;
    for (const StorageBrowserModel::ViewMode mode : StorageBrowserModel::allViewModes())
        modes.append(shown(mode));
    m_viewMode = new SegmentedControl(tr("View"), modes, controls);
    m_viewMode->setFixedWidth(viewModeWidth);
    QList<MenuButton::Choice> orders;
    for (const StorageBrowserModel::SortOrder order : StorageBrowserModel::allSortOrders())
        orders.append({.text = shown(order)});
    m_sortOrder = new MenuButton(Button::Kind::bordered, {}, u"arrow.up.arrow.down"_s, orders, controls);
    QHBoxLayout* row = makeRow(controls);
    row->addWidget(m_viewMode);
    row->addWidget(m_sortOrder);
    connect(m_viewMode, &SegmentedControl::chosen, this,
            [this](int index) { m_model.setViewMode(StorageBrowserModel::allViewModes().at(index)); });
    connect(m_sortOrder, &MenuButton::chosen, this,
            [this](int index) { m_model.setSortOrder(StorageBrowserModel::allSortOrders().at(index)); });
    return controls;
}

QWidget* StorageHeader::makeActions()
{
    auto* actions = new QWidget(this);
    m_organise = new Button(Button::Kind::bordered, tr("Organise"), u"folder.badge.gearshape"_s, actions);
    m_organise->setToolTip(tr("Open this folder in Smart Organizer"));
    auto* choose = new Button(Button::Kind::bordered, tr("Choose Folder"), u"folder.badge.plus"_s, actions);
    QHBoxLayout* row = makeRow(actions);
    row->addWidget(m_organise);
    row->addWidget(choose);
    connect(m_organise, &QPushButton::clicked, this, [this] {
        if (const std::optional<FileURL> folder = m_model.currentURL())
            m_model.organiseCurrentFolder(*folder);
    });
    connect(choose, &QPushButton::clicked, &m_model, &StorageBrowserModel::pickFolder);
    return actions;
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
    return {leastWords + m_actions->sizeHint().width(), QWidget::minimumSizeHint().height()};
}

void StorageHeader::arrange()
{
    // As wide as it can become, so that a change of the view moves nothing.
    const int controls = viewModeWidth + spacing + m_sortOrder->sizeHint().width() + spacing;
    const int needed = leastWords + controls + m_actions->sizeHint().width();
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

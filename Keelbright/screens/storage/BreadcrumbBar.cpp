#include "Keelbright/screens/storage/BreadcrumbBar.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QMenu>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int gap = 8; ///< behind the button "Back"
constexpr int chevronSize = 14;
constexpr int chevronRoom = chevronSize + 4;
constexpr int maximumCrumbWidth = 180;
/// For the last crumb, which is the folder on display.
constexpr int minimumLastWidth = 120;

SymbolLabel* makeChevron(QWidget* parent)
{
    return new SymbolLabel(u"chevron.right"_s, chevronSize, Role::secondaryText, parent);
}

int widthOf(const Button* crumb)
{
    return std::min(crumb->sizeHint().width(), maximumCrumbWidth);
}

} // namespace

BreadcrumbBar::BreadcrumbBar(QWidget* parent)
    : QWidget(parent)
    , m_back(new Button(Button::Kind::bordered, tr("Back"), u"chevron.left"_s, this))
    , m_folded(new Button(Button::Kind::plainIcon, tr("Folders above"), u"ellipsis"_s, this))
    , m_foldedChevron(makeChevron(this))
    , m_last(new ElidedLabel({}, FontRole::bodyStrong, Role::primaryText, Qt::ElideRight, this))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_folded->setCompact(true);
    connect(m_back, &QPushButton::clicked, this, &BreadcrumbBar::backPressed);
    connect(m_folded, &QPushButton::clicked, this, &BreadcrumbBar::showFolded);
}

void BreadcrumbBar::setCrumbs(const QStringList& names)
{
    if (names == m_names)
        return;
    m_names = names;
    for (const Stop& stop : std::exchange(m_stops, {})) {
        // This may be called from within a click on that button.
        stop.crumb->hide();
        stop.crumb->deleteLater();
        delete stop.chevron;
    }
    for (int i = 0; i + 1 < names.size(); ++i)
        addStop(i);
    m_back->setEnabled(names.size() > 1);
    m_last->setFullText(names.last());
    fold();
}

void BreadcrumbBar::addStop(int index)
{
    auto* crumb = new Button(Button::Kind::link, m_names.at(index), {}, this);
    connect(crumb, &QPushButton::clicked, this, [this, index] { Q_EMIT crumbPressed(index); });
    setTabOrder(m_stops.isEmpty() ? m_folded : m_stops.last().crumb, crumb);
    m_stops.append({crumb, makeChevron(this)});
}

int BreadcrumbBar::foldedWithin(int width) const
{
    const int last = m_last->sizeHint().width();
    int needed = last;
    for (const Stop& stop : m_stops)
        needed += widthOf(stop.crumb) + chevronRoom;
    if (needed <= width)
        return 0;
    int free = width - m_folded->sizeHint().width() - chevronRoom - std::min(last, minimumLastWidth);
    int folded = static_cast<int>(m_stops.size());
    while (folded > 0) {
        free -= widthOf(m_stops.at(folded - 1).crumb) + chevronRoom;
        if (free < 0)
            break;
        --folded;
    }
    // 0 if all crumbs fit once the last name is cut.
    return folded;
}

void BreadcrumbBar::fold()
{
    m_foldedCount = foldedWithin(width() - m_back->sizeHint().width() - gap);
    m_folded->setVisible(m_foldedCount > 0);
    m_foldedChevron->setVisible(m_foldedCount > 0);
    for (qsizetype i = 0; i < m_stops.size(); ++i) {
        m_stops.at(i).crumb->setVisible(i >= m_foldedCount);
        m_stops.at(i).chevron->setVisible(i >= m_foldedCount);
    }
    place();
}

void BreadcrumbBar::place()
{
    int x = 0;
    const auto put = [this, &x](QWidget* widget, int widgetWidth, int advance) {
        const int widgetHeight = std::min(widget->sizeHint().height(), height());
        widget->setGeometry(x, (height() - widgetHeight) / 2, widgetWidth, widgetHeight);
        x += advance;
    };
    const int backWidth = m_back->sizeHint().width();
    put(m_back, backWidth, backWidth + gap);
    if (m_foldedCount > 0) {
        const int foldedWidth = m_folded->sizeHint().width();
        put(m_folded, foldedWidth, foldedWidth + 2);
        put(m_foldedChevron, chevronSize, chevronRoom - 2);
    }
    for (const Stop& stop : m_stops.sliced(m_foldedCount)) {
        const int crumbWidth = widthOf(stop.crumb);
        put(stop.crumb, crumbWidth, crumbWidth + 2);
        put(stop.chevron, chevronSize, chevronRoom - 2);
    }
    x += 3; // As far from the chevron as the text of a crumb.
    put(m_last, std::max(0, std::min(m_last->sizeHint().width(), width() - x)), 0);
}

void BreadcrumbBar::showFolded()
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int i = 0; i < m_foldedCount; ++i) {
        const QString text = displayText(m_names.at(i)).replace(u'&', "&&"_L1);
        menu->addAction(text, this, [this, i] { Q_EMIT crumbPressed(i); });
    }
    menu->popup(m_folded->mapToGlobal(m_folded->rect().bottomLeft()));
}

void BreadcrumbBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fold();
}

QSize BreadcrumbBar::sizeHint() const
{
    return {m_back->sizeHint().width() + gap + m_last->sizeHint().width(), m_back->sizeHint().height()};
}

QSize BreadcrumbBar::minimumSizeHint() const
{
    return {m_back->sizeHint().width() + gap + minimumLastWidth, m_back->sizeHint().height()};
}

} // namespace keelbright

#include "Keelbright/widgets/Panels.h"

#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QSplitter>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int headerHeight = 66;
constexpr int headerMargin = Metrics::panelPadding;
constexpr int symbolSize = 20;
constexpr int minimumRightWidth = 300;

} // namespace

PanelHeader::PanelHeader(const QString& title, const QString& subtitle, const QString& symbol, Role color,
                         QWidget* parent)
    : QWidget(parent)
    , m_symbol(new SymbolLabel(symbol, symbolSize, color, this))
    , m_title(new ElidedLabel(title, FontRole::headline, Role::primaryText, Qt::ElideRight, this))
    , m_subtitle(new ElidedLabel(subtitle, FontRole::secondary, Role::secondaryText, Qt::ElideRight, this))
    , m_layout(new QHBoxLayout(this))
{
    setMinimumHeight(headerHeight);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(headerMargin, 8, headerMargin, 8);
    m_layout->setSpacing(12);
    m_layout->addWidget(m_symbol);
    m_symbol->setVisible(!symbol.isEmpty());
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addStretch();
    texts->addWidget(m_title);
    texts->addWidget(m_subtitle);
    texts->addStretch();
    m_layout->addLayout(texts, 1);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

void PanelHeader::setTitle(const QString& title)
{
    m_title->setFullText(title);
}

void PanelHeader::setSubtitle(const QString& subtitle)
{
    m_subtitle->setFullText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

void PanelHeader::setSymbol(const QString& key, Role color)
{
    m_symbol->setKey(key);
    m_symbol->setColorRole(color);
    m_symbol->setVisible(!key.isEmpty());
}

void PanelHeader::addTrailing(QWidget* widget)
{
    m_layout->addWidget(widget);
}

Ground::Ground(Role color, QWidget* parent)
    : QWidget(parent)
    , m_color(color)
    , m_content(new QVBoxLayout(this))
{
    m_content->setContentsMargins(0, 0, 0, 0);
    m_content->setSpacing(0);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Ground::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), Theme::instance().color(m_color));
}

QWidget* makeSplit(QWidget* left, QWidget* right, int leftWidth, QWidget* parent)
{
    auto* splitter = new QSplitter(Qt::Horizontal, parent);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    left->setMinimumWidth(std::min(leftWidth, left->minimumWidth() > 0 ? left->minimumWidth() : leftWidth));
    right->setMinimumWidth(minimumRightWidth);
    splitter->addWidget(left);
    splitter->addWidget(right);
    // A screen reader goes by the stacking order, which the splitter has reversed.
    left->lower();
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({leftWidth, 10000});
    return splitter;
}

} // namespace keelbright

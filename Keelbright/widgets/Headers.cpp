#include "Keelbright/widgets/Headers.h"

#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace keelbright {

PageHeader::PageHeader(const QString& title, const QString& subtitle, QWidget* parent)
    : QWidget(parent)
    , m_titleRow(new QHBoxLayout)
    , m_title(makeWrappingLabel(title, FontRole::pageTitle, Role::primaryText, this))
    , m_subtitle(makeWrappingLabel(subtitle, FontRole::body, Role::secondaryText, this))
    , m_actions(new QHBoxLayout)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(3);
    m_titleRow->setSpacing(10);
    m_titleRow->addWidget(m_title, 1);
    texts->addLayout(m_titleRow);
    texts->addWidget(m_subtitle);
    layout->addLayout(texts, 1);
    m_actions->setSpacing(8);
    layout->addLayout(m_actions);
    layout->setAlignment(m_actions, Qt::AlignBottom);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

void PageHeader::setTitle(const QString& title)
{
    m_title->setText(title);
}

void PageHeader::setSubtitle(const QString& subtitle)
{
    m_subtitle->setText(subtitle);
    m_subtitle->setVisible(!subtitle.isEmpty());
}

void PageHeader::setSymbol(const QString& key, Role color)
{
    m_titleRow->insertWidget(0, new SymbolLabel(key, 26, color, this));
}

void PageHeader::addAction(QWidget* action)
{
    m_actions->addWidget(action);
}

SectionHeader::SectionHeader(const QString& title, const QString& symbolKey, Role color, QWidget* parent)
    : QWidget(parent)
    , m_title(new Label(title, FontRole::sectionTitle, Role::primaryText, this))
    , m_layout(new QHBoxLayout(this))
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(8);
    if (!symbolKey.isEmpty())
        m_layout->addWidget(new SymbolLabel(symbolKey, 16, color, this));
    m_layout->addWidget(m_title);
    m_layout->addStretch();
}

void SectionHeader::setTitle(const QString& title)
{
    m_title->setText(title);
}

void SectionHeader::addTrailing(QWidget* widget)
{
    m_layout->addWidget(widget);
}

Separator::Separator(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent)
{
    if (orientation == Qt::Horizontal)
        setFixedHeight(1);
    else
        setFixedWidth(1);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Separator::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), Theme::instance().color(Role::line));
}

} // namespace keelbright

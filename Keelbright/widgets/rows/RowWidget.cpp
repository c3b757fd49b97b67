#include "Keelbright/widgets/rows/RowWidget.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int rowPadding = Metrics::cardPadding;
constexpr double tagTint = 0.12;

} // namespace

RowWidget::RowWidget(QWidget* leading, const QString& title, const QString& detail, Detail kind,
                     QWidget* parent)
    : QWidget(parent)
    , m_title(new ElidedLabel(title, FontRole::bodyStrong, Role::primaryText, Qt::ElideRight, this))
    , m_detail(new ElidedLabel(detail, FontRole::secondary, Role::secondaryText,
                               kind == Detail::path ? Qt::ElideMiddle : Qt::ElideRight, this))
    , m_titleLine(new QHBoxLayout)
    , m_layout(new QHBoxLayout(this))
{
    setMinimumHeight(Metrics::row + 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_layout->setContentsMargins(rowPadding, 7, rowPadding, 7);
    m_layout->setSpacing(12);
    if (leading != nullptr)
        m_layout->addWidget(leading);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    m_titleLine->setSpacing(8);
    m_titleLine->addWidget(m_title);
    m_titleLine->addStretch(1);
    texts->addLayout(m_titleLine);
    texts->addWidget(m_detail);
    texts->addStretch();
    m_layout->addLayout(texts, 1);
    m_detail->setVisible(!detail.isEmpty());
    updateAccessibleName();
}

void RowWidget::setTitle(const QString& title)
{
    m_title->setFullText(title);
    updateAccessibleName();
}

void RowWidget::setTitleColor(Role color)
{
    m_title->setColorRole(color);
}

void RowWidget::setDetail(const QString& detail)
{
    m_detail->setFullText(detail);
    m_detail->setVisible(!detail.isEmpty());
    updateAccessibleName();
}

void RowWidget::addBesideTitle(QWidget* widget)
{
    m_titleLine->insertWidget(m_titleLine->count() - 1, widget);
}

void RowWidget::addTrailing(QWidget* widget)
{
    m_layout->addWidget(widget);
}

void RowWidget::contextMenuEvent(QContextMenuEvent* event)
{
    QList<Button*> buttons = findChildren<Button*>(Qt::FindDirectChildrenOnly);
    buttons.removeIf([this](const Button* button) { return !button->isVisibleTo(this); });
    if (buttons.isEmpty()) {
        QWidget::contextMenuEvent(event);
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (Button* button : buttons) {
        const QIcon icon = button->symbol().isEmpty()
                               ? QIcon()
                               : Symbol::icon(button->symbol(), Theme::instance().color(Role::mutedText));
        QAction* action = menu->addAction(icon, button->caption().replace(u'&', QStringLiteral("&&")));
        action->setEnabled(button->isEnabled());
        connect(action, &QAction::triggered, button, &Button::click);
    }
    menu->popup(event->globalPos());
}

void RowWidget::updateAccessibleName()
{
    const QString detail = m_detail->text();
    setAccessibleName(detail.isEmpty() ? m_title->text() : tr("%1, %2").arg(m_title->text(), detail));
}

Tag::Tag(const QString& text, Role hue, QWidget* parent)
    : QWidget(parent)
    , m_hue(hue)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 1, 8, 2);
    layout->addWidget(new Label(text, FontRole::captionStrong,
                                hue == Role::secondaryText ? Role::mutedText : textRole(hue), this));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Tag::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::instance().tint(m_hue, tagTint));
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
}

} // namespace keelbright

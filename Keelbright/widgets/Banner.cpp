#include "Keelbright/widgets/Banner.h"

#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QShowEvent>
#include <QVBoxLayout>

namespace keelbright {

namespace {

/// What the symbol says by its color.
QString meaning(Role hue)
{
    if (hue == Role::red)
        return Banner::tr("Error");
    return hue == Role::orange ? Banner::tr("Warning") : Banner::tr("Note");
}

} // namespace

Banner::Banner(Role hue, const QString& symbolKey, const QString& title, QWidget* parent)
    : QWidget(parent)
    , m_hue(hue)
    , m_title(makeWrappingLabel(title, FontRole::sectionTitle, Role::primaryText, this))
    , m_content(new QVBoxLayout)
    , m_lines(new QVBoxLayout)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metrics::cardPadding, 14, Metrics::cardPadding, 14);
    layout->setSpacing(12);
    auto* symbol = new SymbolLabel(symbolKey, 20, hue, this);
    symbol->setAccessibleName(meaning(hue));
    layout->addWidget(symbol);
    layout->setAlignment(symbol, Qt::AlignTop);
    m_content->setSpacing(4);
    m_lines->setSpacing(6);
    m_content->addWidget(m_title);
    m_content->addLayout(m_lines);
    layout->addLayout(m_content, 1);
    updateAccessibleTexts();
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Banner::setTitle(const QString& title)
{
    m_title->setText(title);
    updateAccessibleTexts();
}

void Banner::setLines(const QStringList& lines)
{
    if (lines == m_texts)
        return;
    m_texts = lines;
    while (QLayoutItem* item = m_lines->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (const QString& line : lines)
        m_lines->addWidget(makeWrappingLabel(displayText(line), FontRole::body, Role::mutedText, this));
    updateAccessibleTexts();
}

void Banner::updateAccessibleTexts()
{
    setAccessibleName(m_title->text());
    setAccessibleDescription(m_texts.join(u'\n'));
}

void Banner::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.tint(m_hue, 0.28));
    painter.setBrush(theme.tint(m_hue, panelTint));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Metrics::cardRadius,
                            Metrics::cardRadius);
}

void Banner::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        say(*this, accessibleName());
}

} // namespace keelbright

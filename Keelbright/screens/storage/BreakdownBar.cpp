#include "Keelbright/screens/storage/BreakdownBar.h"

#include "Keelbright/screens/shared/FlowLayout.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <algorithm>

namespace keelbright {

namespace {

constexpr int barHeight = 10;
constexpr double barRadius = 5;
constexpr double minimumSegmentWidth = 2;
constexpr qsizetype legendLength = 6;
constexpr int dotSize = 8;

/// "● Video 15.25 GB".
class LegendEntry : public QWidget
{
public:
    LegendEntry(const FileTypeShare& share, QWidget* parent)
        : QWidget(parent)
        , m_color(share.color)
    {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(dotSize + 5, 0, 0, 0);
        layout->setSpacing(5);
        layout->addWidget(new Label(share.label, FontRole::secondary, Role::secondaryText, this));
        layout->addWidget(new NumberLabel(L10n::Formatters::bytes(share.bytes), FontRole::secondary,
                                          Role::primaryText, this));
        connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::instance().color(m_color));
        painter.drawEllipse(QRectF(0, (height() - dotSize) / 2.0, dotSize, dotSize));
    }

private:
    Role m_color;
};

QString textOf(const FileTypeShare& share)
{
    return ShareBar::tr("%1: %2").arg(share.label, L10n::Formatters::bytes(share.bytes));
}

} // namespace

ShareBar::ShareBar(QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(barHeight);
    setAccessibleName(tr("Kinds of files"));
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ShareBar::setShares(const QList<FileTypeShare>& shares, qint64 totalBytes)
{
    m_shares = shares;
    m_totalBytes = totalBytes;
    QStringList texts;
    for (const FileTypeShare& share : shares)
        texts.append(textOf(share));
    setAccessibleDescription(texts.join(QStringLiteral(", ")));
    update();
}

QList<QRectF> ShareBar::segments() const
{
    QList<QRectF> segments;
    double x = 0;
    for (const FileTypeShare& share : m_shares) {
        const double part =
            m_totalBytes > 0 ? static_cast<double>(share.bytes) / static_cast<double>(m_totalBytes) : 0;
        const double segmentWidth = std::max(minimumSegmentWidth, width() * part);
        segments.append({x, 0, segmentWidth, static_cast<double>(height())});
        x += segmentWidth;
    }
    return segments;
}

bool ShareBar::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QList<QRectF> places = segments();
    for (qsizetype i = 0; i < places.size(); ++i) {
        if (places.at(i).contains(help->pos())) {
            QToolTip::showText(help->globalPos(), toolTipText(textOf(m_shares.at(i))), this,
                               places.at(i).toAlignedRect());
            return true;
        }
    }
    QToolTip::hideText();
    return true;
}

void ShareBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(rect(), barRadius, barRadius);
    painter.fillPath(shape, theme.color(Role::track));
    const QList<QRectF> places = segments();
    for (qsizetype i = 0; i < places.size(); ++i) {
        QPainterPath part;
        part.addRect(places.at(i));
        painter.fillPath(part.intersected(shape), theme.color(m_shares.at(i).color));
    }
    // A thin line separates neighbours of one colour.
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (qsizetype i = 1; i < places.size(); ++i) {
        if (places.at(i).width() > 2 * minimumSegmentWidth)
            painter.fillRect(QRectF(places.at(i).left(), 0, 1, height()), theme.color(Role::window));
    }
}

BreakdownBar::BreakdownBar(QWidget* parent)
    : QWidget(parent)
    , m_bar(new ShareBar(this))
    , m_legend(new FlowLayout(16, 4))
{
    m_legend->setBalanced(true);
    // A fixed policy would keep the height of a legend on one line.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_bar);
    layout->addLayout(m_legend);
}

void BreakdownBar::setShares(const QList<FileTypeShare>& shares, qint64 totalBytes)
{
    m_bar->setShares(shares, totalBytes);
    if (shares == m_shares)
        return;
    m_shares = shares;
    while (const std::unique_ptr<QLayoutItem> item{m_legend->takeAt(0)})
        delete item->widget();
    for (const FileTypeShare& share : shares.first(std::min(legendLength, shares.size()))) {
        auto* entry = new LegendEntry(share, this);
        m_legend->addWidget(entry);
        entry->show();
    }
    layout()->invalidate(); // it caches the height of the old legend
    updateGeometry();
}

} // namespace keelbright

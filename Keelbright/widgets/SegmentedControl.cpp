#include "Keelbright/widgets/SegmentedControl.h"

#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QRadioButton>

namespace keelbright {

namespace {

constexpr int framePadding = 3;
constexpr int textPadding = 10;

} // namespace

/// One of the choices.
class Segment : public QRadioButton
{
public:
    Segment(const QString& text, QWidget* parent)
        : QRadioButton(text, parent)
    {
        setAccessibleName(text);
        setFont(Theme::instance().font(FontRole::bodyStrong));
        setAttribute(Qt::WA_Hover);
        setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Expanding);
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 2 * textPadding,
                Metrics::buttonHeight - 2 * framePadding};
    }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Whether a click is turning it on, which `clicked` announces as well.
    [[nodiscard]] bool isBeingClicked() const { return m_isBeingClicked; }

protected:
    void nextCheckState() override
    {
        m_isBeingClicked = true;
        QRadioButton::nextCheckState();
        m_isBeingClicked = false;
    }

    [[nodiscard]] bool hitButton(const QPoint& point) const override { return rect().contains(point); }

    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = Theme::instance();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        constexpr double radius = Metrics::buttonRadius - 2;
        if (isChecked() || underMouse()) {
            painter.setBrush(theme.color(isChecked() ? Role::accentFill : Role::hover));
            painter.drawRoundedRect(rect(), radius, radius);
        }
        painter.setFont(font());
        painter.setPen(theme.color(isChecked() ? Role::onFill : Role::primaryText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
        if (hasFocus() && m_focusRing.isVisible())
            FocusRing::paint(painter, rect(), radius, isChecked());
    }

    void focusInEvent(QFocusEvent* event) override
    {
        m_focusRing.focusIn(*event);
        QRadioButton::focusInEvent(event);
        update();
    }

    void focusOutEvent(QFocusEvent* event) override
    {
        m_focusRing.focusOut();
        QRadioButton::focusOutEvent(event);
        update();
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        m_focusRing.keyPressed();
        QRadioButton::keyPressEvent(event);
        update();
    }

private:
    FocusRing m_focusRing;
    bool m_isBeingClicked = false;
};

SegmentedControl::SegmentedControl(const QString& name, const QStringList& choices, QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(name);
    setFixedHeight(Metrics::buttonHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(framePadding, framePadding, framePadding, framePadding);
    layout->setSpacing(2);
    for (qsizetype i = 0; i < choices.size(); ++i) {
        auto* segment = new Segment(choices.at(i), this);
        layout->addWidget(segment, 1);
        m_segments.append(segment);
        const int index = static_cast<int>(i);
        connect(segment, &QRadioButton::clicked, this, [this, index] { Q_EMIT chosen(index); });
        // A screen reader turns a segment on without a click.
        connect(segment, &QRadioButton::toggled, this, [this, segment, index](bool isOn) {
            if (isOn && !m_isSettingIndex && !segment->isBeingClicked())
                Q_EMIT chosen(index);
        });
    }
    if (!m_segments.isEmpty())
        setCurrentIndex(0);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void SegmentedControl::setCurrentIndex(int index)
{
    m_isSettingIndex = true;
    m_segments.at(index)->setChecked(true);
    m_isSettingIndex = false;
    // Tab stops at the checked segment only. Qt ensures that only once a segment has had the focus.
    for (Segment* segment : std::as_const(m_segments))
        segment->setFocusPolicy(segment->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void SegmentedControl::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme.color(Role::controlLine));
    painter.setBrush(theme.color(Role::card));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Metrics::buttonRadius,
                            Metrics::buttonRadius);
}

} // namespace keelbright

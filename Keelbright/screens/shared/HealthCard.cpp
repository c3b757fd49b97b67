#include "Keelbright/screens/shared/HealthCard.h"

#include "Keelbright/screens/shared/Placeholder.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/Progress.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int ringDiameter = 88;
constexpr int ringThickness = 8;
constexpr int barHeight = 6;
constexpr int fullScore = 100;

/// One of the three parts of the score.
struct Part
{
    const char* name;
    int HealthScore::* points;
    int maximum;
    Role color;
};

constexpr std::array parts{
    Part{QT_TRANSLATE_NOOP("keelbright::HealthCard", "Backup"), &HealthScore::backupPoints, 40, Role::accent},
    Part{QT_TRANSLATE_NOOP("keelbright::HealthCard", "Storage"), &HealthScore::diskPoints, 30, Role::purple},
    Part{QT_TRANSLATE_NOOP("keelbright::HealthCard", "Junk"), &HealthScore::junkPoints, 30, Role::orange},
};

/// The widgets of the card, which are arranged in the same way with and without a score.
struct Pieces
{
    struct Band
    {
        QWidget* label;
        QWidget* bar;
    };

    QWidget* ring;
    QWidget* headline;
    QWidget* detail;
    std::array<Band, parts.size()> bands;
    QWidget* button;
};

QWidget* arrange(const Pieces& pieces)
{
    auto* whole = new QWidget;
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(8, 6, 6, 6);
    row->setSpacing(24);
    row->addWidget(pieces.ring, 0, Qt::AlignVCenter);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addStretch();
    texts->addWidget(pieces.headline);
    texts->addSpacing(1);
    texts->addWidget(pieces.detail);
    texts->addSpacing(12);
    auto* bands = new QHBoxLayout;
    bands->setSpacing(22);
    for (const Pieces::Band& piece : pieces.bands) {
        auto* band = new QVBoxLayout;
        band->setSpacing(5);
        band->addWidget(piece.label);
        band->addWidget(piece.bar);
        bands->addLayout(band, 1);
    }
    texts->addLayout(bands);
    texts->addStretch();
    row->addLayout(texts, 1);
    row->addWidget(pieces.button, 0, Qt::AlignTop);
    return whole;
}

} // namespace

HealthCard::HealthCard(QWidget* parent)
    : Card(parent)
    , m_loading(makeLoading())
    , m_loaded(makeLoaded())
{
    content()->addWidget(m_loading);
    content()->addWidget(m_loaded.whole);
    m_loaded.whole->hide();
    connect(m_loaded.recalculate, &QPushButton::clicked, this, &HealthCard::recalculateRequested);
    setAccessibleName(tr("Calculating the health score"));
}

Role HealthCard::color(HealthScore::Grade grade)
{
    switch (grade) {
    case HealthScore::Grade::a:
        return Role::green;
    case HealthScore::Grade::b:
        return Role::jade;
    case HealthScore::Grade::c:
        return Role::accent;
    case HealthScore::Grade::d:
        return Role::orange;
    case HealthScore::Grade::f:
        return Role::red;
    }
    return Role::red;
}

QWidget* HealthCard::makeLoading()
{
    Pieces pieces{
        .ring = Placeholder::ring(ringDiameter, ringThickness),
        .headline = new Placeholder(FontRole::headline, 230),
        .detail = new Placeholder(FontRole::body, 310),
        .bands = {},
        .button = new QWidget,
    };
    for (Pieces::Band& band : pieces.bands)
        band = {new Placeholder(FontRole::captionStrong, 76), Placeholder::bar(barHeight)};
    pieces.button->setFixedSize(Metrics::buttonHeight, Metrics::buttonHeight);
    return arrange(pieces);
}

HealthCard::Loaded HealthCard::makeLoaded()
{
    Loaded loaded{
        .ring = new RingProgress(tr("Health score"), ringDiameter, ringThickness),
        .headline = makeWrappingLabel({}, FontRole::headline, Role::primaryText),
        .detail = makeWrappingLabel({}, FontRole::body, Role::mutedText),
        .bands = {},
        .recalculate = new Button(Button::Kind::icon, tr("Recalculate health score"), u"arrow.clockwise"_s),
        .whole = nullptr,
    };
    Pieces pieces{loaded.ring, loaded.headline, loaded.detail, {}, loaded.recalculate};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        loaded.bands.at(i) = {new NumberLabel({}, FontRole::captionStrong, Role::primaryText),
                              new BarProgress(tr(parts.at(i).name), parts.at(i).color)};
        pieces.bands.at(i) = {loaded.bands.at(i).label, loaded.bands.at(i).bar};
    }
    loaded.whole = arrange(pieces);
    return loaded;
}

void HealthCard::setScore(const std::optional<HealthScore>& score)
{
    if (score == m_score)
        return;
    m_score = score;
    m_loading->setVisible(!score);
    m_loaded.whole->setVisible(score.has_value());
    setTint(score ? color(score->grade) : Role::card);
    if (score)
        showScore(*score);
    else
        setAccessibleName(tr("Calculating the health score"));
}

void HealthCard::showScore(const HealthScore& score)
{
    const QString grade = HealthScore::rawValue(score.grade);
    const QString headline = HealthScore::headline(score.grade);
    m_loaded.ring->setColorRole(color(score.grade));
    m_loaded.ring->setCenter(QString::number(score.points), grade);
    m_loaded.ring->setFraction(static_cast<double>(score.points) / fullScore);
    m_loaded.headline->setText(headline);
    m_loaded.detail->setText(score.detail);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts.at(i);
        const int points = score.*part.points;
        m_loaded.bands.at(i).label->setText(
            tr("%1  %2/%3").arg(tr(part.name), QString::number(points), QString::number(part.maximum)));
        m_loaded.bands.at(i).bar->setFraction(static_cast<double>(points) / part.maximum);
    }
    const QString summary = tr("Health score %1, %2. %3").arg(QString::number(score.points), grade, headline);
    if (isVisible())
        announce(*this, summary);
    else
        setAccessibleName(summary);
}

} // namespace keelbright

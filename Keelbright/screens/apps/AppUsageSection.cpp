#include "Keelbright/screens/apps/AppUsageSection.h"

#include "Keelbright/screens/apps/UsageLook.h"
#include "Keelbright/screens/shared/CardGridLayout.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// A title and its value beside a tile; one element for a screen reader.
QWidget* makeNumber(const QString& title, const QString& value, const QString& icon, Role color)
{
    auto* number = new QWidget;
    number->setAccessibleName(AppUsageSection::tr("%1 %2").arg(title, value));
    auto* row = new QHBoxLayout(number);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(10);
    row->addWidget(new Tile(icon, color, Metrics::tile, number));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(1);
    texts->addWidget(new NumberLabel(value, FontRole::sectionTitle, Role::primaryText, number));
    texts->addWidget(new Label(title, FontRole::secondary, Role::secondaryText, number));
    row->addLayout(texts, 1);
    return number;
}

QHBoxLayout* makeVerdict(const AppInfo& app)
{
    constexpr int iconSize = 20;
    const UsageLook look = lookOf(app.usageCategory);
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(new SymbolLabel(look.icon, iconSize, look.color), 0, Qt::AlignTop);
    row->addWidget(makeWrappingLabel(app.usageDescription, FontRole::body, Role::primaryText), 1);
    return row;
}

QString usesOf(const AppInfo& app)
{
    if (!app.hasUsageRecord)
        return AppUsageSection::tr("Unknown");
    return app.useCount == 0 ? AppUsageSection::tr("Never") : QString::number(app.useCount);
}

} // namespace

AppUsageSection::AppUsageSection(const AppInfo& app, const QDateTime& now, QWidget* parent)
    : PageSection(new SectionHeader(tr("Usage"), u"chart.bar.fill"_s), parent)
{
    const QString uses = usesOf(app);
    auto* card = new Card(this);
    // Its height depends on how many numbers stand side by side.
    card->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    auto* numbers = new CardGridLayout;
    numbers->setSpacing(12);
    numbers->addWidget(
        makeNumber(tr("Last Opened"), app.lastUsedFormatted(now), u"clock.fill"_s, Role::accent));
    numbers->addWidget(makeNumber(tr("Times Opened"), uses, u"arrow.clockwise"_s, Role::purple));
    numbers->addWidget(makeNumber(tr("Installed"), app.installedFormatted(), u"calendar"_s, Role::green));
    card->content()->addLayout(numbers);
    card->content()->addWidget(new Separator(Qt::Horizontal, card));
    card->content()->addLayout(makeVerdict(app));
    content()->addWidget(card);
}

} // namespace keelbright

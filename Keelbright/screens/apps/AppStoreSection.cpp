#include "Keelbright/screens/apps/AppStoreSection.h"

#include "Keelbright/screens/apps/BusyLine.h"
#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <array>
#include <charconv>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The store allows 4,000 characters. Laying out a text of any length could block the program.
constexpr qsizetype maximumDescription = 20'000;

/// The display text with its line breaks kept.
QString shownDescription(const QString& description)
{
    QStringList lines = description.left(maximumDescription).split(u'\n');
    for (QString& line : lines)
        line = displayText(line);
    if (description.size() > maximumDescription)
        lines.last() += u'…';
    return lines.join(u'\n').trimmed();
}

/// "%.1f (%d)" exactly: Qt would round 4.25 up, and C would use the decimal comma of the user's locale.
QString ratingText(double average, qint64 count)
{
    std::array<char, 320> digits{}; // the largest number has 309 before the point
    const auto [end, error] =
        std::to_chars(digits.begin(), digits.end(), average, std::chars_format::fixed, 1);
    const QString rating = error == std::errc() ? QString::fromLatin1(digits.data(), end - digits.data())
                                                : QString::number(average);
    return u"%1 (%2)"_s.arg(rating, QString::number(count));
}

QWidget* makeFact(const QString& icon, const QString& text)
{
    constexpr int iconSize = 14;
    auto* fact = new QWidget;
    auto* row = new QHBoxLayout(fact);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(new SymbolLabel(icon, iconSize, Role::secondaryText, fact));
    row->addWidget(new ElidedLabel(text, FontRole::secondary, Role::secondaryText, Qt::ElideRight, fact), 1);
    return fact;
}

QWidget* makeDescription(const iTunesAppInfo& info)
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto* description =
        makeWrappingLabel(shownDescription(info.description), FontRole::body, Role::primaryText, content);
    description->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(description);
    column->addSpacing(6);
    column->addWidget(makeFact(u"person.fill"_s, info.sellerName));
    column->addWidget(makeFact(u"tag.fill"_s, info.genre));
    if (info.averageRating && info.ratingCount)
        column->addWidget(makeFact(u"star.fill"_s, ratingText(*info.averageRating, *info.ratingCount)));
    return content;
}

} // namespace

AppStoreSection::AppStoreSection(AppDetailVM& model, QWidget* parent)
    : PageSection(new SectionHeader(tr("About This App"), u"info.circle.fill"_s), parent)
    , m_model(model)
    , m_card(new Card(this))
{
    content()->addWidget(m_card);
    connect(&m_model, &AppDetailVM::itunesChanged, this, &AppStoreSection::redraw);
    redraw();
}

QWidget* AppStoreSection::makeContent()
{
    if (const std::optional<iTunesAppInfo>& info = m_model.itunesInfo())
        return makeDescription(*info);
    if (m_model.isLoadingiTunes())
        return new BusyLine(tr("Looking up on App Store…"));
    if (m_model.itunesLookedUp())
        return makeWrappingLabel(tr("Not found on the Mac App Store."), FontRole::body, Role::secondaryText);
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    auto* lookUp = new Button(Button::Kind::bordered, tr("Look Up on App Store"), u"magnifyingglass"_s, line);
    connect(lookUp, &QPushButton::clicked, &m_model, &AppDetailVM::fetchDescription);
    row->addWidget(lookUp);
    row->addStretch();
    return line;
}

void AppStoreSection::redraw()
{
    if (m_shown != nullptr) {
        // It may hold the button whose click is being handled.
        m_shown->hide();
        m_shown->deleteLater();
    }
    m_shown = makeContent();
    m_card->content()->addWidget(m_shown);
    m_shown->show();
    if (m_model.isLoadingiTunes())
        announce(*m_card, tr("Looking up on App Store…"));
    else if (const std::optional<iTunesAppInfo>& info = m_model.itunesInfo())
        announce(*m_card, displayText(info->appName));
    else if (m_model.itunesLookedUp())
        announce(*m_card, tr("Not found on the Mac App Store."));
}

} // namespace keelbright

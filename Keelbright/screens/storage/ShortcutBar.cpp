#include "Keelbright/screens/storage/ShortcutBar.h"

#include "Keelbright/screens/shared/FlowLayout.h"
#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "Keelbright/widgets/Button.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Place = StorageShortcuts::Place;

constexpr int gap = 8;

QString labelOf(Place place)
{
    switch (place) {
    case Place::home:
        return ShortcutBar::tr("Home");
    case Place::documents:
        return ShortcutBar::tr("Documents");
    case Place::desktop:
        return ShortcutBar::tr("Desktop");
    case Place::downloads:
        return ShortcutBar::tr("Downloads");
    case Place::pictures:
        return ShortcutBar::tr("Pictures");
    }
    Q_UNREACHABLE();
}

QString symbolOf(Place place)
{
    switch (place) {
    case Place::home:
        return u"house.fill"_s;
    case Place::documents:
        return u"doc.fill"_s;
    case Place::desktop:
        return u"menubar.rectangle"_s;
    case Place::downloads:
        return u"arrow.down.circle.fill"_s;
    case Place::pictures:
        return u"photo.fill"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

ShortcutBar::ShortcutBar(StorageBrowserModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    // Not fixed: that would be the height of one line.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    auto* row = new FlowLayout(gap, gap, this);
    for (const Place place : StorageShortcuts::allPlaces) {
        auto* button = new Button(Button::Kind::bordered, labelOf(place), symbolOf(place), this);
        button->setHue(Role::accent);
        connect(button, &QPushButton::clicked, this,
                [this, place] { m_model.navigate(StorageShortcuts::folder(place)); });
        row->addWidget(button);
        m_buttons.append({place, button});
    }
    connect(&m_model.shortcuts(), &StorageShortcuts::changed, this, &ShortcutBar::redraw);
    redraw();
}

void ShortcutBar::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_model.shortcuts().lookUp();
}

void ShortcutBar::redraw()
{
    for (const auto& [place, button] : m_buttons)
        button->setEnabled(m_model.shortcuts().exists(place));
}

} // namespace keelbright

#include "Keelbright/screens/apps/AppIconLabel.h"

#include "Keelbright/screens/apps/AppIcons.h"

#include <QPainter>

namespace keelbright {

using namespace Qt::StringLiterals;

AppIconLabel::AppIconLabel(AppIcons& icons, const AppFacts& app, int side, QWidget* parent)
    : Tile(u"app.fill"_s, Role::secondaryText, side, parent)
    , m_icons(icons)
    , m_source(AppIcons::sourceOf(app))
    , m_name(app.themeIcon)
{
    connect(&m_icons, &AppIcons::loaded, this, qOverload<>(&QWidget::update));
}

void AppIconLabel::paintEvent(QPaintEvent* event)
{
    const QPixmap icon = m_icons.icon(m_source, sizeHint().width(), m_name);
    if (icon.isNull())
        Tile::paintEvent(event);
    else
        QPainter(this).drawPixmap(rect(), icon);
}

} // namespace keelbright

#include "Keelbright/widgets/theme/ApplicationStyle.h"

#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <cmath>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int scrollBarWidth = 12;
constexpr int menuRadius = 8;
constexpr int menuMargin = 5; ///< above the first entry and below the last, so that no corner cuts them

void drawScrollBar(const QStyleOptionSlider& option, QPainter& painter, QRect handle)
{
    const Theme& theme = Theme::instance();
    // The track is not drawn, so that the page shows through.
    if (option.minimum == option.maximum)
        return;
    const bool isActive = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                          option.state.testFlag(QStyle::State_MouseOver);
    const int inset = isActive || option.state.testFlag(QStyle::State_Sunken) ? 2 : 3;
    QColor color = theme.color(Role::emptyMark);
    color.setAlphaF(isActive ? 0.9F : 0.6F);
    const QRectF bar = QRectF(handle).adjusted(inset, inset, -inset, -inset);
    const double radius = std::min(bar.width(), bar.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(bar, radius, radius);
    painter.restore();
}

constexpr char floatingMark[] = "keelbrightFloatingScrollBar";

/// Whether the area of this scroll bar has asked for it.
bool isFloating(const QWidget* bar)
{
    const QWidget* container = bar != nullptr ? bar->parentWidget() : nullptr;
    const QWidget* area = container != nullptr ? container->parentWidget() : nullptr;
    return area != nullptr && area->property(floatingMark).toBool();
}

void drawMenuBarItem(const QStyleOptionMenuItem& option, QPainter& painter)
{
    const Theme& theme = Theme::instance();
    painter.fillRect(option.rect, theme.color(Role::sidebar));
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(Role::pressed));
        painter.drawRoundedRect(option.rect.adjusted(0, 3, 0, -3), 5, 5);
        painter.restore();
    }
    painter.setPen(theme.color(Role::primaryText));
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
}

void drawFocusFrame(const QStyleOption& option, QPainter& painter)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::instance().color(Role::accent), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 5, 5);
    painter.restore();
}

/// The background of a text field or a button of the toolkit.
void drawControlGround(const QStyleOption& option, QPainter& painter, bool isField)
{
    const Theme& theme = Theme::instance();
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool hasFocus = isEnabled && option.state.testFlag(QStyle::State_HasFocus);
    QColor ground = theme.color(Role::card);
    if (!isField && option.state.testFlag(QStyle::State_Sunken))
        ground = composed(ground, theme.color(Role::pressed));
    else if (!isField && isEnabled && option.state.testFlag(QStyle::State_MouseOver))
        ground = composed(ground, theme.color(Role::hover));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus ? QPen(theme.color(Role::accent), 2) : QPen(theme.color(Role::controlLine)));
    painter.setBrush(ground);
    const double inset = hasFocus ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), Metrics::buttonRadius,
                            Metrics::buttonRadius);
    painter.restore();
}

void drawMenuPanel(const QRect& rect, QPainter& painter, bool areCornersCutOff)
{
    const Theme& theme = Theme::instance();
    const QColor line = composed(theme.color(Role::card), theme.color(Role::controlLine));
    painter.save();
    // What is left of the corners would be black without a compositor.
    if (areCornersCutOff)
        painter.fillRect(rect, line);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, 1));
    painter.setBrush(theme.color(Role::card));
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), menuRadius, menuRadius);
    painter.restore();
}

/// The pixels of which a rounded panel covers at least a part.
QRegion roundedRegion(const QRect& rect)
{
    QRegion region(rect);
    for (int row = 0; row < menuRadius; ++row) {
        const double height = menuRadius - (row + 1);
        const int cut = static_cast<int>(menuRadius - std::sqrt(menuRadius * menuRadius - height * height));
        for (const int y : {rect.top() + row, rect.bottom() - row}) {
            region -= QRect(rect.left(), y, cut, 1);
            region -= QRect(rect.right() - cut + 1, y, cut, 1);
        }
    }
    return region;
}

/// X11 is the one platform that may have no compositor, without which nothing is transparent.
ApplicationStyle::Corners cornersOfPlatform()
{
    const QString platform = QGuiApplication::platformName();
    return platform == "xcb"_L1 ? ApplicationStyle::Corners::cutOff : ApplicationStyle::Corners::transparent;
}

/// The symbol in place of one of the toolkit's pictures; empty if the toolkit's own is kept.
QString symbolFor(QStyle::StandardPixmap picture)
{
    switch (picture) {
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirClosedIcon:
        return u"folder.fill"_s;
    case QStyle::SP_DirHomeIcon:
        return u"house.fill"_s;
    case QStyle::SP_DriveHDIcon:
        return u"internaldrive.fill"_s;
    case QStyle::SP_FileIcon:
        return u"doc.fill"_s;
    case QStyle::SP_ArrowBack:
        return u"arrow.left"_s;
    case QStyle::SP_ArrowForward:
        return u"arrow.right"_s;
    case QStyle::SP_FileDialogToParent:
        return u"arrow.up"_s;
    case QStyle::SP_FileDialogNewFolder:
        return u"folder.badge.plus"_s;
    case QStyle::SP_FileDialogListView:
        return u"square.grid.2x2.fill"_s;
    case QStyle::SP_FileDialogDetailedView:
        return u"list.bullet"_s;
    default:
        return {};
    }
}

} // namespace

void ApplicationStyle::floatScrollBar(QAbstractScrollArea& area)
{
    area.setProperty(floatingMark, true);
}

ApplicationStyle::ApplicationStyle()
    : ApplicationStyle(cornersOfPlatform())
{}

ApplicationStyle::ApplicationStyle(Corners corners)
    : QProxyStyle(u"Fusion"_s)
    , m_corners(corners)
{}

void ApplicationStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QMenu*>(widget) != nullptr && m_corners == Corners::transparent)
        widget->setAttribute(Qt::WA_TranslucentBackground);
}

void ApplicationStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const
{
    if (element == CE_MenuBarEmptyArea) {
        painter->fillRect(option->rect, Theme::instance().color(Role::sidebar));
        return;
    }
    if (element == CE_Splitter) {
        painter->fillRect(option->rect, Theme::instance().color(Role::sidebar));
        painter->fillRect(option->rect, Theme::instance().color(Role::line));
        return;
    }
    if (element == CE_MenuEmptyArea)
        return; // the panel lies there already
    if (element == CE_MenuBarItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
            drawMenuBarItem(*item, *painter);
            return;
        }
    }
    if (element == CE_MenuItem) {
        if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
            item != nullptr && item->checkType == QStyleOptionMenuItem::Exclusive) {
            // The current one of several choices has a check mark, not a bullet.
            QStyleOptionMenuItem checked(*item);
            checked.checkType = QStyleOptionMenuItem::NonExclusive;
            QProxyStyle::drawControl(element, &checked, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ApplicationStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                          QPainter* painter, const QWidget* widget) const
{
    if (control == CC_ScrollBar) {
        if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option)) {
            drawScrollBar(*slider, *painter, subControlRect(control, option, SC_ScrollBarSlider, widget));
            return;
        }
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void ApplicationStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                     const QWidget* widget) const
{
    if (element == PE_FrameFocusRect) {
        drawFocusFrame(*option, *painter);
        return;
    }
    if (element == PE_PanelButtonCommand || element == PE_PanelLineEdit) {
        drawControlGround(*option, *painter, element == PE_PanelLineEdit);
        return;
    }
    if (element == PE_FrameLineEdit)
        return; // drawn with the background
    if (element == PE_PanelMenu) {
        drawMenuPanel(option->rect, *painter, m_corners == Corners::cutOff);
        return;
    }
    if (element == PE_FrameMenu)
        return; // drawn with the panel
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QRect ApplicationStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl subControl, const QWidget* widget) const
{
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || slider == nullptr)
        return QProxyStyle::subControlRect(control, option, subControl, widget);
    // The bar has no arrow buttons, so the groove is the whole bar.
    const bool isHorizontal = slider->orientation == Qt::Horizontal;
    const int length = isHorizontal ? slider->rect.width() : slider->rect.height();
    const qint64 range = qint64(slider->maximum) - slider->minimum;
    int handle = length;
    if (range > 0)
        handle = std::clamp(static_cast<int>(qint64(slider->pageStep) * length / (range + slider->pageStep)),
                            std::min(32, length), length);
    const int start = sliderPositionFromValue(slider->minimum, slider->maximum, slider->sliderPosition,
                                              length - handle, slider->upsideDown);
    const auto part = [&](int from, int size) {
        return isHorizontal ? QRect(from, 0, size, slider->rect.height())
                            : QRect(0, from, slider->rect.width(), size);
    };
    switch (subControl) {
    case SC_ScrollBarSlider:
        return part(start, handle);
    case SC_ScrollBarGroove:
        return slider->rect;
    case SC_ScrollBarSubPage:
        return part(0, start);
    case SC_ScrollBarAddPage:
        return part(start + handle, length - start - handle);
    default:
        return {};
    }
}

QSize ApplicationStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                         const QWidget* widget) const
{
    const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton)
        return {base.width() + 12, std::max(base.height(), Metrics::buttonHeight)};
    if (type == CT_LineEdit)
        return {base.width(), std::max(base.height(), Metrics::buttonHeight)};
    if (type == CT_MenuItem)
        return base + QSize(12, 4);
    if (type == CT_MenuBarItem)
        return {base.width(), std::max(base.height(), 28)};
    return base;
}

int ApplicationStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ScrollView_ScrollBarOverlap:
        return isFloating(widget) ? scrollBarWidth : 0;
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
        return 0;
    case PM_MenuBarHMargin:
        return 8;
    case PM_SplitterWidth:
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
        return menuMargin;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QIcon ApplicationStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                     const QWidget* widget) const
{
    const QString symbol = symbolFor(picture);
    if (symbol.isEmpty())
        return QProxyStyle::standardIcon(picture, option, widget);
    const bool isPlace = picture == SP_DirIcon || picture == SP_DriveHDIcon || picture == SP_DirHomeIcon;
    return Symbol::icon(symbol, Theme::instance().color(isPlace ? Role::accent : Role::mutedText));
}

int ApplicationStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const
{
    switch (hint) {
    case SH_ScrollBar_Transient:
        return 0;
    case SH_Menu_Mask:
        if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(data);
            mask != nullptr && option != nullptr && m_corners == Corners::cutOff) {
            mask->region = roundedRegion(option->rect);
            return 1;
        }
        return 0;
    case SH_Widget_Animation_Duration:
        return Theme::instance().duration(QProxyStyle::styleHint(hint, option, widget, data));
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_UnderlineShortcut:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

} // namespace keelbright

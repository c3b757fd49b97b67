#include "Keelbright/widgets/Theme.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"
#include "tests/support/PaintedText.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QComboBox>
#include <QHash>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <algorithm>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

void PrintTo(const ScreenState& state, std::ostream* stream)
{
    *stream << state.screen << "-" << state.name;
}

namespace {

constexpr double readableContrast = 4.5;

/// A text on screen, in the coordinates of the window.
struct ShownText
{
    QString text;
    QRect rect; ///< what can be seen of it
    QColor color;
};

/// Each screen in each of its states, in the real window.
class EveryScreenTests : public ::testing::TestWithParam<ScreenState>
{
protected:
    EveryScreenTests()
    {
        Theme::instance().install();
        QApplication::setCursorFlashTime(0);
        GetParam().play(stage);
    }

    /// Calls it in both schemes at both sizes.
    void inEveryLook(const std::function<void()>& check)
    {
        for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
            for (const QSize& size : {MainWindow::startingSize, MainWindow::minimumWindowSize}) {
                Theme::instance().setScheme(scheme);
                window().resize(size);
                Stage::turnFrames();
                const ::testing::ScopedTrace trace(__FILE__, __LINE__,
                                                   (scheme == ColorScheme::light ? "light, " : "dark, ") +
                                                       std::to_string(size.width()) + " wide");
                check();
            }
        }
    }

    [[nodiscard]] MainWindow& window() { return stage.window(); }

    [[nodiscard]] static std::string nameOf(const QWidget& widget)
    {
        return widget.metaObject()->className() + (" \"" + widget.accessibleName().toStdString() + '"');
    }

    /// What a user can press, write into or choose from, as far as it can be used now.
    [[nodiscard]] QList<QWidget*> controls()
    {
        QList<QWidget*> found;
        for (auto* widget : window().findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && isControl(*widget))
                found.append(widget);
        }
        return found;
    }

    /// Where the focus has gone.
    QWidget* pressTab()
    {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &window(), Qt::Key_Tab);
        return QApplication::focusWidget();
    }

    [[nodiscard]] QImage pictureAround(const QWidget& control)
    {
        Stage::turnFrames();
        const QRect around(control.mapTo(&window(), QPoint()), control.size());
        return window().grab(around.adjusted(-4, -4, 4, 4)).toImage();
    }

    [[nodiscard]] QList<ShownText> shownTexts()
    {
        QList<ShownText> shown;
        for (auto* widget : window().findChildren<QWidget*>()) {
            const QRegion visible = widget->isVisible() ? widget->visibleRegion() : QRegion();
            // What can't be used now is pale by custom.
            if (visible.isEmpty() || !widget->isEnabled())
                continue;
            for (const PaintedText& text : textsPaintedBy(*widget)) {
                const QRect seen = visible.intersected(text.rect.toAlignedRect()).boundingRect();
                if (!seen.isEmpty() && !text.text.trimmed().isEmpty())
                    shown.append(
                        {text.text, seen.translated(widget->mapTo(&window(), QPoint())), text.color});
            }
        }
        return shown;
    }

    Stage stage;

private:
    [[nodiscard]] static bool isControl(const QWidget& widget)
    {
        // Parts of a control of the toolkit, which answers for them.
        if (qobject_cast<const QScrollBar*>(&widget) != nullptr ||
            qobject_cast<const QLineEdit*>(widget.parentWidget()) != nullptr ||
            widget.objectName().startsWith("qt_"_L1))
            return false;
        // A text that can only be read and copied is none.
        const auto* field = qobject_cast<const QLineEdit*>(&widget);
        return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
               qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
               qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
               qobject_cast<const QComboBox*>(&widget) != nullptr ||
               (field != nullptr && !field->isReadOnly()) ||
               (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    }
};

/// What lies behind the words, a little around them too: the colour that most of the picture has
/// there. Where the ground is a gradient, each of its colours may be rarer than that of the words.
QColor groundBehind(const QImage& picture, const ShownText& text)
{
    constexpr QRgb coarse = 0xFFF8F8F8;
    QHash<QRgb, qsizetype> counts;
    QHash<QRgb, QRgb> colors;
    const QRect area = text.rect.adjusted(-3, -3, 3, 3).intersected(picture.rect());
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            ++counts[pixel & coarse];
            colors.insert(pixel & coarse, pixel);
        }
    }
    const QRgb ownColor = text.color.rgb() & coarse;
    const bool isLost = 2 * counts.value(ownColor) > static_cast<qsizetype>(area.width()) * area.height();
    if (!isLost)
        counts.remove(ownColor);
    const auto most = std::ranges::max_element(counts);
    return most == counts.end() ? text.color : QColor::fromRgb(colors.value(most.key()));
}

/// The heart of a line of words, without the room above and below that lines share.
QRect heart(const QRect& line)
{
    return line.adjusted(1, line.height() / 4, -1, -line.height() / 4);
}

/// Of buttons that exclude each other the arrows reach the rest.
bool isReachedByArrows(const QWidget& control, const QSet<QWidget*>& reached)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->autoExclusive() &&
           std::ranges::any_of(reached, [&control](const QWidget* other) {
               return other->parentWidget() == control.parentWidget() &&
                      qobject_cast<const QAbstractButton*>(other) != nullptr;
           });
}

std::string testName(const ::testing::TestParamInfo<ScreenState>& info)
{
    const QString name = QString::fromLatin1(info.param.screen) + u'_' + QString::fromLatin1(info.param.name);
    return QString(name).replace(u'-', u'_').toStdString();
}

} // namespace

TEST_P(EveryScreenTests, everyControlHasAName)
{
    for (const QWidget* control : controls())
        EXPECT_FALSE(control->accessibleName().isEmpty()) << nameOf(*control);
}

TEST_P(EveryScreenTests, everyControlIsReachedByTab)
{
    const QList<QWidget*> all = controls();
    ASSERT_FALSE(all.isEmpty());
    QSet<QWidget*> reached;
    while (QWidget* next = pressTab()) {
        if (reached.contains(next))
            break;
        reached.insert(next);
    }
    for (QWidget* control : all)
        EXPECT_TRUE(reached.contains(control) || isReachedByArrows(*control, reached)) << nameOf(*control);
}

TEST_P(EveryScreenTests, theFocusCanBeSeen)
{
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::instance().setScheme(scheme);
        Stage::turnFrames();
        QSet<QWidget*> seen;
        while (QWidget* control = pressTab()) {
            if (seen.contains(control))
                break;
            seen.insert(control);
            const QImage with = pictureAround(*control);
            control->clearFocus();
            const QImage without = pictureAround(*control);
            EXPECT_TRUE(with != without) << nameOf(*control);
            control->setFocus();
        }
    }
}

TEST_P(EveryScreenTests, everyTextCanBeRead)
{
    inEveryLook([this] {
        const QImage picture = window().grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QList<ShownText> texts = shownTexts();
        EXPECT_FALSE(texts.isEmpty());
        for (const ShownText& text : texts) {
            const QColor ground = groundBehind(picture, text);
            const QColor color = composed(ground, text.color);
            EXPECT_GE(contrastRatio(color, ground), readableContrast)
                << text.text.toStdString() << ": " << color.name().toStdString() << " on "
                << ground.name().toStdString();
        }
    });
}

TEST_P(EveryScreenTests, noTextLiesOnAnother)
{
    inEveryLook([this] {
        const QList<ShownText> texts = shownTexts();
        for (qsizetype i = 0; i < texts.size(); ++i) {
            for (qsizetype j = i + 1; j < texts.size(); ++j) {
                EXPECT_FALSE(heart(texts.at(i).rect).intersects(heart(texts.at(j).rect)))
                    << texts.at(i).text.toStdString() << " and " << texts.at(j).text.toStdString();
            }
        }
    });
}

TEST_P(EveryScreenTests, noWordsAreCutOffAtTheSide)
{
    inEveryLook([this] {
        for (auto* widget : window().findChildren<QWidget*>()) {
            if (!widget->isVisible())
                continue;
            const QRect seen = widget->visibleRegion().boundingRect();
            for (const PaintedText& text : textsPaintedBy(*widget)) {
                // Scrolled away as a whole, or in part from above or below.
                if (!text.rect.intersects(seen) || text.text.trimmed().isEmpty())
                    continue;
                EXPECT_GE(text.rect.left(), seen.left() - 1.5)
                    << text.text.toStdString() << " in " << nameOf(*widget);
                EXPECT_LE(text.rect.right(), seen.right() + 2.5)
                    << text.text.toStdString() << " in " << nameOf(*widget);
            }
        }
    });
}

INSTANTIATE_TEST_SUITE_P(States, EveryScreenTests, ::testing::ValuesIn(screenStates()), testName);

} // namespace keelbright::testing

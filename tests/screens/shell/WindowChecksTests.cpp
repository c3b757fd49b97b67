#include "tests/support/WindowChecks.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/support/PaintedText.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// A background from the colour of the text on it to white.
class Gradient : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QLinearGradient colors(0, 0, width(), 0);
        colors.setColorAt(0, QColor(0xE0, 0xE8, 0xFF));
        colors.setColorAt(1, Qt::white);
        QPainter(this).fillRect(rect(), colors);
    }
};

/// Shows that the checks of all screens find their faults.
class WindowChecksTests : public ::testing::Test
{
protected:
    WindowChecksTests()
    {
        Theme::instance().install();
        window.resize(400, 300);
    }

    Label* addLabel(const QString& text, Role color, const QRect& place)
    {
        auto* label = new Label(text, FontRole::body, color, &window);
        label->setGeometry(place);
        return label;
    }

    void show()
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    ThemeGuard theme;
    Gradient window;
};

} // namespace

TEST_F(WindowChecksTests, aPaintedTextIsFoundWithPlaceAndColor)
{
    Label* label = addLabel(u"Text"_s, Role::redText, {10, 20, 200, 30});
    show();
    const QList<PaintedText> texts = textsPaintedBy(*label);
    ASSERT_EQ(texts.size(), 1);
    EXPECT_EQ(texts.first().text, u"Text"_s);
    EXPECT_EQ(texts.first().color, Theme::instance().color(Role::redText));
    EXPECT_TRUE(QRectF(label->rect()).contains(texts.first().rect));
    EXPECT_NEAR(texts.first().rect.width(), label->fontMetrics().horizontalAdvance(u"Text"_s), 2);
}

TEST_F(WindowChecksTests, aFaintTextIsFoundAndAClearOneIsNot)
{
    addLabel(u"Clear"_s, Role::primaryText, {10, 20, 200, 20});
    show();
    EXPECT_EQ(faintTexts(window), QStringList());
    addLabel(u"Faint"_s, Role::emptyMark, {10, 60, 200, 20})->show();
    addLabel(u"Lost"_s, Role::card, {390, 100, 10, 20})->show();
    ASSERT_EQ(faintTexts(window).size(), 2);
    EXPECT_TRUE(faintTexts(window).first().startsWith(u"Faint: #a1a1a6 on "_s));
    EXPECT_TRUE(faintTexts(window).last().startsWith(u"Lost: #ffffff on "_s));
}

TEST_F(WindowChecksTests, aFaintTextThatCanNotBeUsedPasses)
{
    addLabel(u"Faint"_s, Role::emptyMark, {10, 60, 200, 20})->setEnabled(false);
    show();
    EXPECT_EQ(faintTexts(window), QStringList());
}

TEST_F(WindowChecksTests, aWindowWithoutTextIsAFault)
{
    show();
    EXPECT_EQ(faintTexts(window), QStringList{u"no text at all"_s});
}

TEST_F(WindowChecksTests, textsOnTextsAreFoundAndTextsSideBySideAreNot)
{
    addLabel(u"Left"_s, Role::primaryText, {10, 20, 60, 20});
    addLabel(u"Right"_s, Role::primaryText, {70, 20, 60, 20});
    addLabel(u"Below"_s, Role::primaryText, {10, 36, 60, 20});
    show();
    EXPECT_EQ(coveredTexts(window), QStringList());
    addLabel(u"Above"_s, Role::primaryText, {14, 20, 60, 20})->show();
    EXPECT_EQ(coveredTexts(window), QStringList{u"Left and Above"_s});
}

TEST_F(WindowChecksTests, aTextThatItsWidgetOrTheWindowCutsIsFound)
{
    addLabel(u"Whole"_s, Role::primaryText, {10, 20, 60, 20});
    show();
    EXPECT_EQ(cutTexts(window), QStringList());
    addLabel(u"Longer than its label"_s, Role::primaryText, {10, 60, 40, 20})->show();
    addLabel(u"Beyond the window"_s, Role::primaryText, {370, 100, 200, 20})->show();
    EXPECT_EQ(cutTexts(window), (QStringList{u"Longer than its label in keelbright::Label \"\""_s,
                                             u"Beyond the window in keelbright::Label \"\""_s}));
}

TEST_F(WindowChecksTests, controlsAreWhatCanBePressedOrWrittenInto)
{
    auto* button = new Button(Button::Kind::bordered, u"Press"_s, {}, &window);
    auto* field = new QLineEdit(&window);
    field->setClearButtonEnabled(true);
    (new QLineEdit(u"only to be read"_s, &window))->setReadOnly(true);
    window.findChildren<QLineEdit*>().last()->setFocusPolicy(Qt::ClickFocus);
    (new Button(Button::Kind::bordered, u"Not now"_s, {}, &window))->setEnabled(false);
    addLabel(u"Text"_s, Role::primaryText, {10, 20, 200, 20});
    show();
    EXPECT_EQ(controlsIn(window), (QList<QWidget*>{button, field}));
    button->setFocusPolicy(Qt::NoFocus);
    EXPECT_TRUE(controlsIn(window).contains(button));
}

} // namespace keelbright::testing

#include "tests/screens/shared/ScreenTestCase.h"

#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Frames.h"

#include <QApplication>
#include <QSet>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

template <typename Widget> QList<Widget*> shown(const QWidget& view)
{
    QList<Widget*> found;
    for (auto* widget : view.findChildren<Widget*>()) {
        if (widget->isVisibleTo(&view))
            found.append(widget);
    }
    return found;
}

} // namespace

AppState& ScreenTestCase::makeState(const BackupReport& lastReport)
{
    AppConfiguration configuration;
    configuration.lastReport = lastReport;
    configuration.lastBackupTime = lastReport.completedAt;
    configStore.save(configuration);
    (void)standardOutputOf([this] { state = std::make_unique<AppState>(services()); });
    return *state;
}

void ScreenTestCase::show(QWidget& view)
{
    view.resize(940, 760);
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
}

void ScreenTestCase::turnFrame()
{
    turnFrames();
}

void ScreenTestCase::turnUntil(const std::function<bool()>& condition)
{
    constexpr int patience = 60'000;
    EXPECT_TRUE(QTest::qWaitFor(condition, patience)) << "what was waited for did not come";
}

Button* ScreenTestCase::button(const QWidget& view, const QString& name)
{
    for (Button* candidate : shown<Button>(view)) {
        if (candidate->accessibleName() == name)
            return candidate;
    }
    ADD_FAILURE() << "no button " << name.toStdString();
    static Button notFound(Button::Kind::bordered, {});
    return &notFound;
}

QStringList ScreenTestCase::accessibleNames(const QWidget& view)
{
    QStringList names;
    for (const QWidget* widget : shown<QWidget>(view)) {
        if (!widget->accessibleName().isEmpty())
            names.append(widget->accessibleName());
    }
    return names;
}

QStringList ScreenTestCase::shownSymbols(const QWidget& view)
{
    QStringList keys;
    for (const SymbolLabel* symbol : shown<SymbolLabel>(view))
        keys.append(symbol->key());
    return keys;
}

void ScreenTestCase::expectEveryControlIsNamedAndReachedByTab(QWidget& view)
{
    QSet<QWidget*> controls;
    for (QWidget* widget : shown<QWidget>(view)) {
        if (!widget->isEnabled() || (widget->focusPolicy() & Qt::TabFocus) != Qt::TabFocus)
            continue;
        controls.insert(widget);
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
    }
    EXPECT_FALSE(controls.isEmpty());
    QSet<QWidget*> reached;
    for (qsizetype i = 0; i <= controls.size(); ++i) {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused != nullptr ? focused : &view, Qt::Key_Tab);
        if (QApplication::focusWidget() != nullptr)
            reached.insert(QApplication::focusWidget());
    }
    for (QWidget* control : controls)
        EXPECT_TRUE(reached.contains(control)) << control->accessibleName().toStdString();
}

} // namespace keelbright::testing

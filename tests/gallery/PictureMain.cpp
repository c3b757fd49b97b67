// keelbright-screens [--language LANGUAGE] FOLDER [BEGINNING...]: draws every screen in every state, in
// both schemes and at the window's usual and smallest size, some at a large one, too, into pictures named
// SCREEN-STATE-SCHEME[-small|-wide][-2x].png. With BEGINNINGs it draws only the states whose names begin
// with one of them, with a LANGUAGE ("de") the window in that. With QT_SCALE_FACTOR=2 it draws only the
// states that the list marks for double scale.

#include "Keelbright/screens/shell/Translations.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace {

using namespace keelbright;
using namespace keelbright::testing;
using namespace Qt::StringLiterals;

constexpr QSize wideSize{1600, 1000};

QString nameOf(const ScreenState& state)
{
    return QString::fromLatin1(state.screen) + u'-' + QString::fromLatin1(state.name);
}

bool isWanted(const ScreenState& state, const QStringList& beginnings)
{
    const QString name = nameOf(state);
    return beginnings.isEmpty() || std::ranges::any_of(beginnings, [&name](const QString& beginning) {
               return name.startsWith(beginning);
           });
}

/// What the command line asks for.
struct Order
{
    QString language = u"en"_s;
    QString folder;
    QStringList beginnings;
};

/// Absent where no folder is named.
std::optional<Order> orderIn(QStringList arguments)
{
    Order order;
    if (arguments.size() >= 2 && arguments.first() == "--language"_L1) {
        order.language = arguments.at(1);
        arguments = arguments.sliced(2);
    }
    if (arguments.isEmpty())
        return std::nullopt;
    order.folder = arguments.takeFirst();
    order.beginnings = arguments;
    return order;
}

/// Gives the number of pictures that could not be written.
int draw(const ScreenState& state, const QDir& folder, const QString& language)
{
    Stage stage;
    if (language != "en"_L1)
        stage.mac.setLocale(QLocale(language));
    state.play(stage);
    const bool isDouble = stage.window().devicePixelRatio() > 1;
    int failures = 0;
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        Theme::instance().setScheme(scheme);
        QList<QSize> sizes = stage.sizes();
        if (state.alsoAtDoubleScale && !isDouble)
            sizes.append(wideSize);
        for (const QSize& size : std::as_const(sizes)) {
            stage.window().resize(size);
            Stage::turnFrames();
            QString name = nameOf(state) + (scheme == ColorScheme::light ? "-light"_L1 : "-dark"_L1);
            if (size == stage.sizes().at(1))
                name += "-small"_L1;
            if (size == wideSize)
                name += "-wide"_L1;
            if (isDouble)
                name += "-2x"_L1;
            const QString path = folder.filePath(name + ".png"_L1);
            if (!stage.window().grab().save(path)) {
                std::fprintf(stderr, "can't write %s\n", path.toLocal8Bit().constData());
                ++failures;
            }
        }
    }
    return failures;
}

} // namespace

int main(int argc, char** argv)
{
    // Without a display, and without reading or writing the user's own settings.
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, configuration.path());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::optional<Order> order = orderIn(QCoreApplication::arguments().mid(1));
    if (!order || !QDir().mkpath(order->folder)) {
        std::fputs("usage: keelbright-screens [--language LANGUAGE] FOLDER [BEGINNING...]\n", stderr);
        return 2;
    }
    // Icons of applications come from the desktop's theme, which differs from computer to computer.
    QIcon::setThemeSearchPaths({configuration.path()});
    QIcon::setFallbackSearchPaths({configuration.path()});
    const Translations translations(QStringList{order->language});
    if (translations.language() != order->language) {
        std::fprintf(stderr, "there are no texts in %s\n", qPrintable(order->language));
        return 2;
    }
    Theme::instance().install();
    const bool isDouble = qApp->devicePixelRatio() > 1;
    int failures = 0;
    for (const ScreenState& state : screenStates()) {
        if (!isWanted(state, order->beginnings) || (isDouble && !state.alsoAtDoubleScale))
            continue;
        std::printf("%s%s\n", qUtf8Printable(nameOf(state)), isDouble ? " at double scale" : "");
        std::fflush(stdout);
        failures += draw(state, QDir(order->folder), order->language);
    }
    const bool wentWrong = ::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed();
    return failures > 0 || wentWrong ? 1 : 0;
}

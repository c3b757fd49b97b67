#include "Keelbright/screens/apps/AppIcons.h"

#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/MadeUpApplication.h"

#include <QIcon>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppIconsTests : public ScreenTestCase
{
protected:
    /// Waits for the background work and takes what it found.
    static void waitForIcons()
    {
        waitForBackgroundWork();
        QCoreApplication::sendPostedEvents();
    }

    FileURL addApp(const QByteArray& name, quint32 colour = 0x0A6CFF) const
    {
        addApplication({mac.root(), mac.clock()()}, "Applications",
                       {.name = name, .bundleID = "org.example." + name, .iconColour = colour});
        return mac.root().appendingNative("Applications/" + name + ".app");
    }

    /// An icon theme of one icon until the test ends.
    void useThemeWith(const QString& name) const
    {
        QImage picture(48, 48, QImage::Format_RGB32);
        picture.fill(QColor(0x0A, 0x6C, 0xFF));
        mac.writeFile("icons/MadeUp/index.theme",
                      "[Icon Theme]\nName=MadeUp\nDirectories=48x48/apps\n\n[48x48/apps]\nSize=48\n");
        const FileURL file = mac.writeFile("icons/MadeUp/48x48/apps/" + name.toUtf8() + ".png", "");
        ASSERT_TRUE(picture.save(file.path()));
        QIcon::setThemeSearchPaths({mac.root().appending(u"icons"_s).path()});
        QIcon::setThemeName(u"MadeUp"_s);
    }

    void TearDown() override
    {
        QIcon::setThemeName(m_themeName);
        QIcon::setThemeSearchPaths(m_searchPaths);
        ScreenTestCase::TearDown();
    }

    AppIcons icons;

private:
    const QString m_themeName = QIcon::themeName();
    const QStringList m_searchPaths = QIcon::themeSearchPaths();
};

} // namespace

TEST_F(AppIconsTests, anIconIsReadInTheBackgroundAndThenKept)
{
    const FileURL ink = addApp("Ink");
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    EXPECT_TRUE(icons.icon(ink, 30).isNull());
    EXPECT_EQ(loaded.size(), 0);
    ASSERT_TRUE(loaded.wait(20'000));
    EXPECT_EQ(loaded.first().first().value<FileURL>(), ink);
    const QPixmap icon = icons.icon(ink, 30);
    EXPECT_EQ(icon.deviceIndependentSize(), QSizeF(30, 30));
    EXPECT_EQ(icon.toImage().pixel(15, 15), 0xFF0A6CFF);
    // Gone from the disk, it is still at hand.
    std::filesystem::remove_all(ink.path().toStdString());
    EXPECT_FALSE(icons.icon(ink, 30).isNull());
    waitForIcons();
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(AppIconsTests, aPictureThatTheApplicationNamesIsItsIcon)
{
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(QColor(0xF0, 0x8A, 0x00));
    const FileURL file = mac.writeFile("snap/ink/7/icon.png", "");
    ASSERT_TRUE(picture.save(file.path()));
    const AppFacts app{.name = u"Ink"_s, .themeIcon = u"/snap/ink/7/icon.png"_s};
    EXPECT_EQ(AppIcons::sourceOf(app), file);
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    EXPECT_TRUE(icons.icon(file, 30, app.themeIcon).isNull());
    ASSERT_TRUE(loaded.wait(20'000));
    EXPECT_EQ(icons.icon(file, 30, app.themeIcon).toImage().pixel(15, 15), 0xFFF08A00);
}

TEST_F(AppIconsTests, aNameInTheIconThemeIsDrawnAndKept)
{
    useThemeWith(u"org.example.Ink"_s);
    const FileURL entry = mac.root().appending(u"usr/share/applications/org.example.Ink.desktop"_s);
    EXPECT_EQ(AppIcons::sourceOf({.url = entry, .themeIcon = u"org.example.Ink"_s}), entry);
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    EXPECT_TRUE(icons.icon(entry, 30, u"org.example.Ink"_s).isNull());
    ASSERT_TRUE(loaded.wait(20'000));
    EXPECT_EQ(loaded.first().first().value<FileURL>(), entry);
    EXPECT_EQ(icons.icon(entry, 30, u"org.example.Ink"_s).toImage().pixel(15, 15), 0xFF0A6CFF);
}

TEST_F(AppIconsTests, aNameThatNoThemeHasIsLookedForOnce)
{
    const FileURL entry = mac.root().appending(u"x.desktop"_s);
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    (void)icons.icon(entry, 30, u"no.such.name"_s);
    ASSERT_TRUE(loaded.wait(20'000));
    EXPECT_TRUE(icons.icon(entry, 30, u"no.such.name"_s).isNull());
    turnFrame();
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(AppIconsTests, ofManyInTheThemeTheLastComesFirstAndOthersHaveTheirTurnInBetween)
{
    useThemeWith(u"org.example.Ink"_s);
    QStringList order;
    QObject::connect(&icons, &AppIcons::loaded, &icons, [&](const FileURL& source) {
        order.append(source.lastPathComponent());
        QMetaObject::invokeMethod(&icons, [&] { order.append(u"another"_s); }, Qt::QueuedConnection);
    });
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
        (void)icons.icon(mac.root().appending(name), 30, u"org.example.Ink"_s);
    turnUntil([&] { return order.size() == 6; });
    EXPECT_EQ(order, (QStringList{u"c"_s, u"another"_s, u"b"_s, u"another"_s, u"a"_s, u"another"_s}));
}

TEST_F(AppIconsTests, eachSizeIsAPictureOfItsOwn)
{
    const FileURL ink = addApp("Ink");
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    (void)icons.icon(ink, 30);
    (void)icons.icon(ink, 56);
    turnUntil([&] { return loaded.size() == 2; });
    EXPECT_EQ(icons.icon(ink, 30).deviceIndependentSize(), QSizeF(30, 30));
    EXPECT_EQ(icons.icon(ink, 56).deviceIndependentSize(), QSizeF(56, 56));
}

TEST_F(AppIconsTests, whatHasNoIconIsAskedOnce)
{
    const FileURL bare = mac.makeFolder("Applications/Bare.app");
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    (void)icons.icon(bare, 30);
    ASSERT_TRUE(loaded.wait(20'000));
    EXPECT_TRUE(icons.icon(bare, 30).isNull());
    waitForIcons();
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(AppIconsTests, askingAgainMeanwhileReadsItOnce)
{
    const FileURL ink = addApp("Ink");
    QSignalSpy loaded(&icons, &AppIcons::loaded);
    for (int i = 0; i < 5; ++i)
        (void)icons.icon(ink, 30);
    ASSERT_TRUE(loaded.wait(20'000));
    waitForIcons();
    EXPECT_EQ(loaded.size(), 1);
}

TEST_F(AppIconsTests, ofManyTheLastThatWereAskedForComeFirst)
{
    QList<FileURL> apps;
    for (int i = 0; i < 300; ++i)
        apps.append(addApp("App" + QByteArray::number(i)));
    const QSignalSpy loaded(&icons, &AppIcons::loaded);
    for (const FileURL& app : apps)
        (void)icons.icon(app, 30);
    turnUntil([&] { return loaded.size() == 202; });
    waitForIcons();
    // The two that were begun with, then from the last back to where the queue was full.
    EXPECT_EQ(loaded.size(), 202);
    QStringList order;
    for (const QList<QVariant>& signal : loaded)
        order.append(signal.first().value<FileURL>().lastPathComponent());
    EXPECT_TRUE(order.mid(0, 6).contains(u"App299.app"_s));
    EXPECT_FALSE(order.contains(u"App99.app"_s));
    EXPECT_TRUE(order.contains(u"App100.app"_s));
    // Whoever comes back to it asks again.
    (void)icons.icon(apps.at(99), 30);
    turnUntil([&] { return loaded.size() == 203; });
    EXPECT_FALSE(icons.icon(apps.at(99), 30).isNull());
}

TEST_F(AppIconsTests, iconsThatAreGoneGetNothingOfARunningRead)
{
    auto closed = std::make_unique<AppIcons>();
    const QSignalSpy loaded(closed.get(), &AppIcons::loaded);
    for (int i = 0; i < 20; ++i)
        (void)closed->icon(addApp("App" + QByteArray::number(i)), 30);
    closed.reset();
    waitForIcons();
    EXPECT_EQ(loaded.size(), 0);
}

} // namespace keelbright::testing

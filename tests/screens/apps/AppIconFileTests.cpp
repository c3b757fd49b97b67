#include "Keelbright/screens/apps/AppIconFile.h"

#include "tests/support/MadeUpApplication.h"
#include "tests/support/MadeUpIcon.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QBuffer>
#include <QtEndian>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 blue = 0x0A6CFF;
constexpr quint32 red = 0xE5383B;
constexpr quint32 green = 0x28A745;

QByteArray entry(const QByteArray& type, const QByteArray& content)
{
    QByteArray size(4, Qt::Uninitialized);
    qToBigEndian(static_cast<quint32>(content.size() + 8), size.data());
    return type + size + content;
}

QByteArray icns(const QByteArray& entries)
{
    return entry("icns", entries);
}

QByteArray png(int width, int height, quint32 rgb)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(rgb);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

/// A rectangle of one colour that fills the whole drawing.
QByteArray svg(int width, int height, const QByteArray& colour)
{
    const QByteArray size =
        "width=\"" + QByteArray::number(width) + "\" height=\"" + QByteArray::number(height) + '"';
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + "><rect " + size + " fill=\"" + colour +
           "\"/></svg>";
}

/// 16 pixels square in the older form: three planes of one colour, and a mask that lets the upper
/// half through.
QByteArray olderPicture(quint32 rgb)
{
    constexpr int pixels = 16 * 16;
    QByteArray planes;
    for (const int shift : {16, 8, 0}) {
        // Runs of 128 bytes of one value each.
        for (int run = 0; run < pixels / 128; ++run) {
            planes += static_cast<char>(0x80 + 128 - 3);
            planes += static_cast<char>(rgb >> shift);
        }
    }
    return entry("is32", planes) +
           entry("s8mk", QByteArray(pixels / 2, '\xFF') + QByteArray(pixels / 2, '\0'));
}

QRgb middleOf(const QImage& image)
{
    return image.isNull() ? 0 : image.pixel(image.width() / 2, image.height() / 2);
}

class AppIconFileTests : public ::testing::Test
{
protected:
    [[nodiscard]] FileURL bundle() const { return mac.root().appending(u"Applications/Ink.app"_s); }

    /// A bundle whose property list has this value for its icon.
    void addBundle(const QByteArray& iconName) const
    {
        mac.writeFile("Applications/Ink.app/Contents/Info.plist",
                      madeUpPropertyList({{"CFBundleIconFile", iconName}}, PropertyListForm::xml));
    }

    void addIcon(const QByteArray& name, const QByteArray& content = madeUpIcon(blue)) const
    {
        mac.writeFile("Applications/Ink.app/Contents/Resources/" + name, content);
    }

    TestMac mac;
};

} // namespace

TEST_F(AppIconFileTests, theIconThatTheBundleNamesIsItsPicture)
{
    addBundle("Drop");
    addIcon("Drop.icns");
    addIcon("AppIcon.icns", madeUpIcon(red));
    const QImage icon = AppIconFile::read(bundle(), 30);
    EXPECT_EQ(icon.size(), QSize(30, 30));
    EXPECT_EQ(middleOf(icon), 0xFF000000U | blue);
}

TEST_F(AppIconFileTests, theNameMayHaveItsExtension)
{
    addBundle("Drop.icns");
    addIcon("Drop.icns");
    EXPECT_EQ(middleOf(AppIconFile::read(bundle(), 30)), 0xFF000000U | blue);
}

TEST_F(AppIconFileTests, aBundleWithoutAnIconHasNone)
{
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
    mac.writeFile("Applications/Ink.app/Contents/Info.plist",
                  madeUpPropertyList({{"CFBundleName", "Ink"}}, PropertyListForm::xml));
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
    addBundle("Missing");
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
}

TEST_F(AppIconFileTests, aNameThatLeadsOutOfTheBundleIsNotItsOwn)
{
    mac.writeFile("Applications/Other.icns", madeUpIcon(blue));
    for (const QByteArray name : {"../../../Other", "/Applications/Other.icns", "..", ".", "", "a/../b"}) {
        addBundle(name);
        EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull()) << name.toStdString();
    }
}

TEST_F(AppIconFileTests, whatIsNoFileOfPicturesIsPassedOver)
{
    addBundle("Drop");
    for (const QByteArray& content : {QByteArray(), QByteArray("icns"), QByteArray("icns\0\0\0\x08", 8),
                                      QByteArray(1000, '\xFF'), png(30, 30, blue), icns("ic07")}) {
        addIcon("Drop.icns", content);
        EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
    }
}

TEST_F(AppIconFileTests, aPipeAFolderAndALinkToADeviceBlockNothing)
{
    addBundle("Drop");
    const FileURL resources = mac.makeFolder("Applications/Ink.app/Contents/Resources");
    const FileURL icon = resources.appending(u"Drop.icns"_s);
    ASSERT_EQ(::mkfifo(icon.nativePath().constData(), 0600), 0);
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
    std::filesystem::remove(icon.path().toStdString());
    mac.makeFolder("Applications/Ink.app/Contents/Resources/Drop.icns");
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
    std::filesystem::remove(icon.path().toStdString());
    std::filesystem::create_symlink("/dev/zero", icon.path().toStdString());
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
}

TEST_F(AppIconFileTests, aFileThatIsTooLargeIsNotRead)
{
    addBundle("Drop");
    addIcon("Drop.icns");
    const FileURL icon = bundle().appending(u"Contents/Resources/Drop.icns"_s);
    std::filesystem::resize_file(icon.path().toStdString(), AppIconFile::maximumBytes);
    EXPECT_FALSE(AppIconFile::read(bundle(), 30).isNull());
    std::filesystem::resize_file(icon.path().toStdString(), AppIconFile::maximumBytes + 1);
    EXPECT_TRUE(AppIconFile::read(bundle(), 30).isNull());
}

TEST_F(AppIconFileTests, ofSeveralPicturesTheSmallestThatIsLargeEnoughServes)
{
    const QByteArray content = icns(entry("ic09", png(512, 512, red)) + entry("ic11", png(32, 32, green)) +
                                    entry("ic07", png(128, 128, blue)) + entry("TOC ", "whatever"));
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 16)), 0xFF000000U | green);
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 32)), 0xFF000000U | green);
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 33)), 0xFF000000U | blue);
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 129)), 0xFF000000U | red);
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 1024)), 0xFF000000U | red);
}

TEST_F(AppIconFileTests, aPictureThatCanNotBeReadGivesWayToTheNextBest)
{
    const QByteArray content =
        icns(entry("ic11", png(32, 32, green).first(40)) + entry("ic07", png(128, 128, blue)));
    EXPECT_EQ(middleOf(AppIconFile::decode(content, 30)), 0xFF000000U | blue);
}

TEST_F(AppIconFileTests, theOlderFormIsReadWithWhatIsTransparentInIt)
{
    const QImage icon = AppIconFile::decode(icns(olderPicture(blue)), 16);
    ASSERT_EQ(icon.size(), QSize(16, 16));
    EXPECT_EQ(icon.pixel(8, 2), 0xFF000000U | blue);
    EXPECT_EQ(qAlpha(icon.pixel(8, 13)), 0);
}

TEST_F(AppIconFileTests, aPictureThatIsNoSquareIsNotStretched)
{
    const QImage icon = AppIconFile::decode(icns(entry("ic07", png(128, 64, blue))), 32);
    EXPECT_EQ(icon.size(), QSize(32, 32));
    EXPECT_EQ(middleOf(icon), 0xFF000000U | blue);
    EXPECT_EQ(qAlpha(icon.pixel(16, 3)), 0);
}

TEST_F(AppIconFileTests, aPictureThatIsTooLargeIsNotDecoded)
{
    constexpr int side = AppIconFile::maximumSide;
    EXPECT_FALSE(AppIconFile::decode(icns(entry("ic10", png(side, 8, blue))), 32).isNull());
    EXPECT_TRUE(AppIconFile::decode(icns(entry("ic10", png(side + 1, 8, blue))), 32).isNull());
    EXPECT_TRUE(AppIconFile::decode(icns(entry("ic10", png(8, side + 1, blue))), 32).isNull());
}

TEST_F(AppIconFileTests, aDrawingIsDrawnInTheSizeThatIsWanted)
{
    for (const int side : {8, 300}) {
        const FileURL file = mac.writeFile("icons/drop.svg", svg(side, side, "#0A6CFF"));
        const QImage icon = AppIconFile::read(file, 30);
        ASSERT_EQ(icon.size(), QSize(30, 30)) << side;
        EXPECT_EQ(icon.pixel(0, 0), 0xFF000000U | blue) << side;
        EXPECT_EQ(icon.pixel(29, 29), 0xFF000000U | blue) << side;
    }
}

TEST_F(AppIconFileTests, aDrawingOfAnySizeTakesNoMoreThanTheSquare)
{
    const FileURL file = mac.writeFile("icons/drop.svg", svg(1'000'000, 1'000'000, "#0A6CFF"));
    EXPECT_EQ(middleOf(AppIconFile::read(file, 30)), 0xFF000000U | blue);
}

TEST_F(AppIconFileTests, aDrawingThatIsNoSquareIsNotStretched)
{
    const FileURL file = mac.writeFile("icons/drop.svg", svg(128, 64, "#0A6CFF"));
    const QImage icon = AppIconFile::read(file, 32);
    ASSERT_EQ(icon.size(), QSize(32, 32));
    EXPECT_EQ(middleOf(icon), 0xFF000000U | blue);
    EXPECT_EQ(qAlpha(icon.pixel(16, 3)), 0);
    EXPECT_EQ(qAlpha(icon.pixel(16, 28)), 0);
}

TEST_F(AppIconFileTests, aDrawingThatCanNotBeReadIsNone)
{
    for (const QByteArray& content :
         {QByteArray(), QByteArray("<svg"), QByteArray("<html></html>"), png(8, 8, red)}) {
        const FileURL file = mac.writeFile("icons/drop.svg", content);
        EXPECT_TRUE(AppIconFile::read(file, 30).isNull()) << content.toStdString();
    }
}

TEST_F(AppIconFileTests, aFileThatEndsAnywhereHasNoPictureOrItsOwn)
{
    const QByteArray whole = icns(olderPicture(red) + entry("ic11", png(32, 32, green)));
    for (qsizetype size = 0; size < whole.size(); ++size) {
        const QImage icon = AppIconFile::decode(whole.first(size), 30);
        EXPECT_TRUE(icon.isNull() || icon.size() == QSize(30, 30)) << size;
    }
}

TEST_F(AppIconFileTests, aFileWithBrokenBytesEndsNothing)
{
    const QByteArray whole =
        icns(olderPicture(red) + entry("ic11", png(32, 32, green)) + entry("it32", QByteArray(300, 'x')) +
             entry("ic04", QByteArray(50, '\x7F')));
    std::mt19937 random(7);
    for (int round = 0; round < 2'000; ++round) {
        QByteArray broken = whole;
        for (int i = 0; i < 8; ++i)
            broken[static_cast<qsizetype>(random() % static_cast<quint32>(broken.size()))] =
                static_cast<char>(random());
        const QImage icon = AppIconFile::decode(broken, 30);
        EXPECT_TRUE(icon.isNull() || icon.size() == QSize(30, 30));
    }
}

} // namespace keelbright::testing

#include "Keelbright/widgets/theme/Symbol.h"

#include "Keelbright/state/Screen.h"
#include "Keelbright/widgets/theme/SymbolTable.h"
#include "KeelbrightCore/backup/BackupStatus.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// Literals with the form of an icon key that are none: names of files, domains and settings.
bool isNoKey(const QString& literal)
{
    static const QRegularExpression other(
        u"^(com|org|kb|www|io)\\.|\\.(com|json|md|csv|ttf|plist|ini|app|tmp|txt|png|icns|lproj|strings|trashinfo|log|log\\.1|d)$"_s);
    return other.match(literal).hasMatch();
}

QStringList knownKeys()
{
    QStringList keys;
    for (const SymbolEntry& entry : symbolTable())
        keys.append(entry.key);
    return keys;
}

/// Every literal in the sources of the program that has the form of an icon key.
QSet<QString> keysInSources()
{
    static const QRegularExpression literal(u"\"([a-z][a-z0-9]*(?:\\.[a-z0-9]+)+)\""_s);
    QSet<QString> keys;
    for (const QString& folder : {u"/Keelbright"_s, u"/KeelbrightCore"_s}) {
        QDirIterator files(QStringLiteral(KEELBRIGHT_SOURCE_DIR) + folder, {u"*.cpp"_s, u"*.h"_s},
                           QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            // The platform has no icons, only names of the system's own.
            const bool hasKeys =
                !file.fileName().contains(u"/platform/"_s) && !file.fileName().endsWith(u"SymbolTable.cpp"_s);
            if (!hasKeys || !file.open(QIODevice::ReadOnly))
                continue;
            auto matches = literal.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext()) {
                const QString key = matches.next().captured(1);
                if (!isNoKey(key))
                    keys.insert(key);
            }
        }
    }
    return keys;
}

} // namespace

TEST(Symbol, everyKeyInTheSourcesHasAPicture)
{
    const QSet<QString> keys = keysInSources();
    EXPECT_TRUE(keys.contains(u"externaldrive.fill"_s)) << "the sources were not found";
    EXPECT_GE(keys.size(), 20);
    for (const QString& key : keys)
        EXPECT_TRUE(knownKeys().contains(key)) << key.toStdString();
}

TEST(Symbol, everyIconOfTheDataHasAPicture)
{
    for (const Screen screen : allScreens())
        EXPECT_TRUE(knownKeys().contains(icon(screen))) << icon(screen).toStdString();
    for (const BackupStatus status : allBackupStatuses())
        EXPECT_TRUE(knownKeys().contains(icon(status))) << icon(status).toStdString();
}

TEST(Symbol, everyPictureDrawsSomethingWithinItsSquare)
{
    for (const QString& key : knownKeys()) {
        const QRectF bounds = Symbol::path(key).boundingRect();
        EXPECT_GT(std::max(bounds.width(), bounds.height()), 0.4) << key.toStdString();
        EXPECT_TRUE(QRectF(-0.1, -0.1, 1.2, 1.2).contains(bounds)) << key.toStdString();
    }
}

TEST(Symbol, keysAreListedOnceAndInOrder)
{
    const QStringList keys = knownKeys();
    QStringList sorted = keys;
    sorted.sort();
    EXPECT_EQ(keys, sorted);
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
}

TEST(Symbol, anUnknownKeyGivesAnEmptyCircle)
{
    EXPECT_FALSE(knownKeys().contains(u"no.such.symbol"_s));
    EXPECT_EQ(Symbol::path(u"no.such.symbol"_s), Symbol::path(u"circle"_s));
}

TEST(Symbol, aBadgeIsDrawnBesideItsGlyph)
{
    EXPECT_NE(Symbol::path(u"externaldrive.badge.plus"_s), Symbol::path(u"externaldrive.fill"_s));
    EXPECT_NE(Symbol::path(u"externaldrive.badge.plus"_s),
              Symbol::path(u"externaldrive.badge.exclamationmark"_s));
}

TEST(Symbol, isSharpAtTwiceTheResolution)
{
    const QPixmap picture = Symbol::icon(u"gear"_s, Qt::red).pixmap(QSize(20, 20), 2.0);
    EXPECT_EQ(picture.size(), QSize(40, 40));
    EXPECT_EQ(picture.devicePixelRatio(), 2.0);
    EXPECT_TRUE(testing::holdsColor(picture.toImage().convertToFormat(QImage::Format_ARGB32), Qt::red));
}

TEST(Symbol, iconIsFainterWhileDisabled)
{
    const QIcon square = Symbol::icon(u"folder.fill"_s, Qt::black);
    const auto middle = [](const QIcon& of, QIcon::Mode mode) {
        return of.pixmap(QSize(32, 32), mode).toImage().pixelColor(16, 18).alpha();
    };
    EXPECT_EQ(middle(square, QIcon::Normal), 255);
    EXPECT_EQ(middle(square, QIcon::Disabled), 102);
}

} // namespace keelbright

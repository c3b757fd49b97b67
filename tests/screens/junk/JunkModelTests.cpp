#include "Keelbright/screens/junk/JunkCategoryModel.h"
#include "Keelbright/screens/junk/JunkItemModel.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QFile>
#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class JunkModelTests : public ScreenTestCase
{
protected:
    [[nodiscard]] JunkItem itemAt(const QByteArray& path) const
    {
        return {.url = mac.root().appendingNative(path), .sizeBytes = 1};
    }

    [[nodiscard]] static QStringList symbols(const JunkItemModel& model)
    {
        QStringList keys;
        for (int row = 0; row < model.rowCount(); ++row)
            keys.append(model.rowAt(row).symbol);
        return keys;
    }

    /// When every answer is in.
    [[nodiscard]] static QStringList settledSymbols(const JunkItemModel& model)
    {
        const QSignalSpy answered(&model, &QAbstractItemModel::dataChanged);
        (void)symbols(model);
        turnUntil([&] { return answered.count() > 0; });
        return symbols(model);
    }

    JunkCleanerVM vm{activityStore};
};

} // namespace

TEST_F(JunkModelTests, eachKindOfJunkHasItsColor)
{
    EXPECT_EQ(junkCategoryColor(u"userCaches"_s), Role::accent);
    EXPECT_EQ(junkCategoryColor(u"userLogs"_s), Role::mint);
    EXPECT_EQ(junkCategoryColor(u"xcode"_s), Role::azure);
    EXPECT_EQ(junkCategoryColor(u"iosBackups"_s), Role::purple);
    EXPECT_EQ(junkCategoryColor(u"browserCache"_s), Role::teal);
    EXPECT_EQ(junkCategoryColor(u"trash"_s), Role::orange);
    EXPECT_EQ(junkCategoryColor(u"somethingElse"_s), Role::secondaryText);
}

TEST_F(JunkModelTests, anItemsIconSaysWhatItIs)
{
    mac.makeFolder("items/caches.log");
    for (const QByteArray name : {"a.plist", "b.log", "c.crash", "d.LOG", "e"})
        mac.writeFile("items/" + name, "x");
    ASSERT_TRUE(QFile::link(mac.root().appending(u"items/caches.log"_s).path(),
                            mac.root().appending(u"items/link"_s).path()));
    JunkItemModel model(vm);
    model.setItems({itemAt("items/caches.log"), itemAt("items/a.plist"), itemAt("items/b.log"),
                    itemAt("items/c.crash"), itemAt("items/d.LOG"), itemAt("items/e"), itemAt("items/link"),
                    itemAt("items/gone")});
    EXPECT_EQ(settledSymbols(model),
              (QStringList{u"folder.fill"_s, u"doc.badge.gearshape"_s, u"doc.text.fill"_s, u"doc.text.fill"_s,
                           u"doc.fill"_s, u"doc.fill"_s, u"folder.fill"_s, u"doc.fill"_s}));
}

TEST_F(JunkModelTests, aCacheOfARunningProgramIsMarkedInItsToolTip)
{
    JunkItem used = itemAt("used");
    used.inUseBy = u"Firefox"_s;
    JunkItemModel model(vm);
    model.setItems({used, itemAt("unused")});
    EXPECT_EQ(model.rowAt(0).toolTip, u"Firefox is running and uses this cache."_s);
    EXPECT_TRUE(model.accessibleText(0).endsWith(u", Firefox is running and uses this cache."_s))
        << model.accessibleText(0).toStdString();
    EXPECT_EQ(model.rowAt(1).toolTip, QString());
}

TEST_F(JunkModelTests, itemsAreFoldersUntilTheAnswerIsThere)
{
    mac.writeFile("file", "x");
    JunkItemModel model(vm);
    model.setItems({itemAt("file")});
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    EXPECT_EQ(model.rowAt(0).symbol, u"folder.fill"_s);
    turnUntil([&] { return changed.count() == 1; });
    EXPECT_EQ(model.rowAt(0).symbol, u"doc.fill"_s);
}

TEST_F(JunkModelTests, otherItemsAreLookedUpAgain)
{
    const JunkItem item = itemAt("place");
    mac.writeFile("place", "x");
    JunkItemModel model(vm);
    model.setItems({item});
    EXPECT_EQ(settledSymbols(model), QStringList{u"doc.fill"_s});
    QFile::remove(item.url.path());
    mac.makeFolder("place");
    model.setItems({item, itemAt("other")});
    EXPECT_EQ(settledSymbols(model), (QStringList{u"folder.fill"_s, u"doc.fill"_s}));
}

} // namespace keelbright::testing

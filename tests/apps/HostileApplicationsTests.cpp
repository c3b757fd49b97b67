#include "tests/apps/AppScannerTestCase.h"
#include "tests/support/UnprivilegedUser.h"

#include <QElapsedTimer>
#include <QMap>
#include <algorithm>
#include <sys/stat.h>

// Property lists and metadata tools that are broken or hostile: the scan leaves the application
// out, or knows nothing of its use, and goes on to the next.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QByteArray identifier = "<key>CFBundleIdentifier</key><string>org.example.app</string>";

class HostileApplicationsTests : public AppScannerTestCase
{
protected:
    HostileApplicationsTests() { addBundle("Applications/Good.app"); }

    void addPropertyList(const QByteArray& content, const QByteArray& app = "Bad") const
    {
        m_files.text("Applications/" + app + ".app/Contents/Info.plist", content);
    }

    [[nodiscard]] static QByteArray xml(const QByteArray& content)
    {
        return "<plist version=\"1.0\">" + content + "</plist>";
    }

    void expectOnlyTheGoodOne() const { EXPECT_EQ(paths(), QByteArrayList{"Applications/Good.app"}); }
};

} // namespace

TEST_F(HostileApplicationsTests, aPlainFileIsLeftOut)
{
    m_files.text("Applications/Plain.app", "no folder");
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aBundleWithoutAPropertyListIsLeftOut)
{
    m_files.folder("Applications/Empty.app");
    m_files.folder("Applications/Nearly.app/Contents");
    m_files.folder("Applications/Folder.app/Contents/Info.plist");
    m_files.link("Applications/Dangling.app", "nowhere.app");
    m_files.link("Applications/Loop.app", "Loop.app");
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aPipeInPlaceOfThePropertyListBlocksNothing)
{
    m_files.folder("Applications/Pipe.app/Contents");
    const QByteArray pipe = m_mac.root().nativePath() + "/Applications/Pipe.app/Contents/Info.plist";
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, whatIsNoPropertyListIsLeftOut)
{
    for (const QByteArray& content :
         {QByteArray(), QByteArray("bplist00"), QByteArray("<plist>"), QByteArray(1000, '\0'),
          QByteArray(1000, '\xFF'), QByteArray("{\"CFBundleIdentifier\": \"org.example.app\"}")}) {
        addPropertyList(content);
        expectOnlyTheGoodOne();
    }
}

TEST_F(HostileApplicationsTests, aTopThatIsNoDictionaryIsLeftOut)
{
    for (const char* top :
         {"<string>org.example.app</string>", "<array><dict/></array>", "<integer>1</integer>", "<true/>"}) {
        addPropertyList(xml(top));
        expectOnlyTheGoodOne();
    }
}

TEST_F(HostileApplicationsTests, aDictionaryInPlaceOfATextIsNoIdentifier)
{
    addPropertyList(xml("<dict><key>CFBundleIdentifier</key><dict>" + identifier + "</dict></dict>"));
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aHundredMegabytesAreLeftOut)
{
    m_files.hole("Applications/Huge.app/Contents/Info.plist", 100'000'000);
    addPropertyList(xml("<dict>" + identifier + "</dict>") + QByteArray(100'000'000, ' '));
    QElapsedTimer timer;
    timer.start();
    expectOnlyTheGoodOne();
    EXPECT_LT(timer.elapsed(), 5'000);
}

TEST_F(HostileApplicationsTests, tenThousandLevelsAreLeftOut)
{
    constexpr int levels = 10'000;
    addPropertyList(xml("<dict>" + identifier + "<key>deep</key>" + QByteArray("<array>").repeated(levels) +
                        QByteArray("</array>").repeated(levels) + "</dict>"));
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aBinaryListThatHoldsItselfIsLeftOut)
{
    // A dictionary of one key, whose value is the dictionary again.
    QByteArray list = madeUpPropertyList({{"CFBundleIdentifier", "x"}}, PropertyListForm::binary);
    const qsizetype reference = QByteArray("bplist00").size() + 2;
    ASSERT_EQ(list.at(reference), 2);
    list[reference] = 0;
    addPropertyList(list);
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aListCutAtAnyByteNeverGivesHalfAnIdentifier)
{
    const Entries entries{{"CFBundleName", "Cut"}, {"CFBundleIdentifier", "org.example.cut"}};
    for (const PropertyListForm form : {PropertyListForm::xml, PropertyListForm::binary}) {
        const QByteArray whole = madeUpPropertyList(entries, form);
        for (qsizetype size = 0; size < whole.size(); ++size)
            addPropertyList(whole.first(size), "Cut" + QByteArray::number(size));
        int good = 0;
        for (const AppInfo& app : scan()) {
            good += app.bundleID == u"org.example.app"_s ? 1 : 0;
            EXPECT_TRUE(app.bundleID == u"org.example.app"_s || app.bundleID == u"org.example.cut"_s)
                << app.bundleID.toStdString();
        }
        EXPECT_EQ(good, 1);
    }
}

TEST_F(HostileApplicationsTests, aPropertyListThatMayNotBeReadIsLeftOut)
{
    addPropertyList(xml("<dict>" + identifier + "</dict>"));
    const QByteArray path = m_mac.root().nativePath() + "/Applications/Bad.app/Contents/Info.plist";
    ASSERT_EQ(::chmod(path.constData(), 0), 0);
    ASSERT_EQ(::chmod(m_mac.root().nativePath().constData(), 0755), 0);
    const UnprivilegedUser plainUser;
    expectOnlyTheGoodOne();
}

TEST_F(HostileApplicationsTests, aToolThatHarmsOneApplicationHarmsNoOther)
{
    for (const char* name : {"Loud", "Complaining", "Mute", "Binary", "Dying", "Failing"})
        addBundle(QByteArray("Applications/") + name + ".app");
    setMetadataTool(R"(case $name in
Loud.app) head -c 3000000 /dev/zero | tr '\0' x ;;
Complaining.app) head -c 3000000 /dev/zero >&2 ;;
Mute.app) exit 0 ;;
Binary.app) printf '\377' ;;
Dying.app) kill -KILL $$ ;;
Failing.app) exit 3 ;;
esac
echo
echo 'kMDItemUseCount = 5')");
    QMap<QString, qint64> useCounts;
    for (const AppInfo& app : scan())
        useCounts.insert(app.name, app.useCount);
    EXPECT_EQ(useCounts, (QMap<QString, qint64>{{u"Good"_s, 5},
                                                {u"Loud"_s, 5},
                                                {u"Complaining"_s, 5},
                                                {u"Mute"_s, 0},
                                                {u"Binary"_s, 0},
                                                {u"Dying"_s, 0},
                                                {u"Failing"_s, 0}}));
}

TEST_F(HostileApplicationsTests, aToolThatVanishesInTheMiddleCostsTheMetadataAlone)
{
    addNumberedBundles(60);
    setMetadataTool("sleep 0.05\nrm -f \"$0\"\necho 'kMDItemUseCount = 5'");
    const QList<AppInfo> apps = scan();
    EXPECT_EQ(apps.size(), 61);
    const auto known = std::ranges::count(apps, 5, &AppInfo::useCount);
    EXPECT_GE(known, 1);
    EXPECT_LT(known, 61);
}

} // namespace keelbright::testing

#include "Keelbright/screens/BackupReportView.h"

#include "Keelbright/screens/backup/PathRow.h"
#include "Keelbright/screens/backup/PathText.h"
#include "Keelbright/widgets/Banner.h"
#include "Keelbright/widgets/StatusCard.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class BackupReportViewTests : public ScreenTestCase
{
protected:
    static BackupReport reportWithErrors(int count)
    {
        BackupReport report = sampleReport();
        for (int i = 1; i <= count; ++i)
            report.errors.append(u"Skip %1"_s.arg(i));
        return report;
    }

    static QStringList cards(const QWidget& view)
    {
        QStringList found;
        for (const auto* card : view.findChildren<StatusCard*>())
            found.append(card->accessibleName());
        return found;
    }

    static PathRow* pathRow(const QWidget& view, qsizetype index)
    {
        return view.findChildren<PathRow*>().at(index);
    }

    /// The title and the lines of the panel of skipped files.
    static QStringList panel(const QWidget& view)
    {
        const auto* banner = view.findChild<Banner*>();
        return banner != nullptr ? textsIn(*banner) : QStringList();
    }
};

} // namespace

TEST_F(BackupReportViewTests, withoutAReportThereIsTheEmptyState)
{
    const BackupReportView view(makeState(), workspace);
    EXPECT_EQ(textsIn(view), (QStringList{u"No Report Yet"_s, u"Run a backup to generate a report."_s}));
    EXPECT_TRUE(shownSymbols(view).contains(u"doc.text.magnifyingglass"_s));
}

TEST_F(BackupReportViewTests, showsWhenAndHowMuch)
{
    const BackupReportView view(makeState(sampleReport()), workspace);
    // Berlin is an hour ahead of UTC; a narrow no-break space precedes AM.
    EXPECT_EQ(textsIn(view).mid(0, 2), (QStringList{u"Backup Report"_s, u"March 1, 2026 at 10:05\x202F"
                                                                        u"AM"_s}));
    EXPECT_EQ(cards(view), (QStringList{u"Files Copied: 1234"_s, u"Data Copied: 2.5 MB"_s,
                                        u"Duration: 42.0s"_s, u"Skipped: 5"_s}));
    QStringList icons;
    QList<Role> colors;
    for (const auto* card : view.findChildren<StatusCard*>()) {
        icons.append(card->findChild<SymbolLabel*>()->key());
        colors.append(card->findChild<SymbolLabel*>()->colorRole());
    }
    EXPECT_EQ(icons, (QStringList{u"doc.fill"_s, u"internaldrive"_s, u"timer"_s, u"minus.circle"_s}));
    EXPECT_EQ(colors, (QList{Role::green, Role::accent, Role::purple, Role::orange}));
}

TEST_F(BackupReportViewTests, nothingSkippedIsNotOrange)
{
    BackupReport report = sampleReport();
    report.filesSkipped = 0;
    const BackupReportView view(makeState(report), workspace);
    EXPECT_EQ(view.findChildren<StatusCard*>().last()->findChild<SymbolLabel*>()->colorRole(),
              Role::secondaryText);
}

TEST_F(BackupReportViewTests, aRunThatEndedAtOnceTookNoSeconds)
{
    BackupReport report = sampleReport();
    report.completedAt = report.startedAt;
    const BackupReportView view(makeState(report), workspace);
    EXPECT_TRUE(cards(view).contains(u"Duration: 0.0s"_s));
}

TEST_F(BackupReportViewTests, listsTheSourceFoldersInOrder)
{
    const BackupReportView view(makeState(sampleReport()), workspace);
    const QStringList shown = textsIn(view);
    EXPECT_EQ(shown.mid(shown.indexOf(u"Source Folders"_s), 3),
              (QStringList{u"Source Folders"_s, u"/Users/mira/Desktop"_s, u"/Users/mira/Documents"_s}));
}

TEST_F(BackupReportViewTests, aClickOnAPathRowOpensThePath)
{
    BackupReport report = sampleReport();
    const FileURL mirror = mac.makeFolder("Volumes/Anchor/Keelbright/Mira/Latest/Personal Files");
    report.personalFilesPath = mirror.path();
    report.destinationPath = drive().path();
    report.manifestPath = mirror.deletingLastPathComponent().path() + u"/recovery-manifest.json"_s;
    BackupReportView view(makeState(report), workspace);
    show(view);
    ASSERT_EQ(view.findChildren<PathRow*>().size(), 3);
    EXPECT_EQ(pathRow(view, 0)->accessibleName(), u"Personal Files, "_s + report.personalFilesPath);
    EXPECT_EQ(pathRow(view, 1)->accessibleName(), u"Backup Root, "_s + report.destinationPath);
    EXPECT_EQ(pathRow(view, 2)->accessibleName(), u"Recovery Manifest, "_s + report.manifestPath);
    EXPECT_EQ(shownSymbols(*pathRow(view, 2)),
              (QStringList{u"doc.badge.checkmark"_s, u"arrow.up.forward.square"_s}));
    for (qsizetype i = 0; i < 3; ++i)
        QTest::mouseClick(pathRow(view, i), Qt::LeftButton, {}, QPoint(5, 20));
    EXPECT_EQ(workspace.opened,
              (QStringList{mirror.path(), drive().path(), mirror.deletingLastPathComponent().path()}));
}

TEST_F(BackupReportViewTests, aMissingPathOpensItsParentFolder)
{
    BackupReport report = sampleReport();
    report.personalFilesPath = drive().path() + u"/Personal Files"_s;
    BackupReportView view(makeState(report), workspace);
    show(view);
    QTest::keyClick(pathRow(view, 0), Qt::Key_Return);
    EXPECT_EQ(workspace.opened, QStringList{drive().path()});
}

TEST_F(BackupReportViewTests, aPathCanBeCopiedAndAClickOnItOpensIt)
{
    BackupReportView view(makeState(sampleReport()), workspace);
    show(view);
    auto* path = pathRow(view, 1)->findChild<PathText*>();
    QTest::mouseClick(path, Qt::LeftButton);
    EXPECT_EQ(workspace.opened.size(), 1);
    // Dragging over it selects and opens nothing.
    QTest::mousePress(path, Qt::LeftButton, {}, QPoint(4, 8));
    QTest::mouseMove(path, QPoint(path->width() - 2, 8));
    QTest::mouseRelease(path, Qt::LeftButton, {}, QPoint(path->width() - 2, 8));
    EXPECT_EQ(workspace.opened.size(), 1);
    EXPECT_FALSE(path->selectedText().isEmpty());
    path->selectAll();
    QTest::keyClick(path, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"/Volumes/Anchor"_s);
}

TEST_F(BackupReportViewTests, aPathIsSelectedAndCopiedByKeyboard)
{
    BackupReportView view(makeState(sampleReport()), workspace);
    show(view);
    auto* path = pathRow(view, 1)->findChild<PathText*>();
    pathRow(view, 1)->setFocus();
    QTest::keyClick(pathRow(view, 1), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), path);
    EXPECT_EQ(path->selectedText(), u"/Volumes/Anchor"_s);
    QTest::keyClick(path, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"/Volumes/Anchor"_s);
    QTest::keyClick(path, Qt::Key_Return);
    EXPECT_EQ(workspace.opened.size(), 1);
}

TEST_F(BackupReportViewTests, aLongPathIsCutInTheMiddleAndWholeInItsToolTip)
{
    BackupReport report = sampleReport();
    report.destinationPath = u"/Volumes/"_s + QString(300, u'a') + u"/end"_s;
    BackupReportView view(makeState(report), workspace);
    show(view);
    const auto* path = pathRow(view, 1)->findChild<PathText*>();
    EXPECT_TRUE(path->shownText().startsWith(u"/Volumes/a"_s));
    EXPECT_TRUE(path->shownText().contains(u'…'));
    EXPECT_TRUE(path->shownText().endsWith(u"/end"_s));
    EXPECT_EQ(path->toolTip(), report.destinationPath);
    EXPECT_EQ(path->text(), report.destinationPath);
}

TEST_F(BackupReportViewTests, openInFinderOpensTheDestination)
{
    const BackupReportView view(makeState(sampleReport()), workspace);
    EXPECT_EQ(button(view, u"Open in Finder"_s)->symbol(), u"folder"_s);
    button(view, u"Open in Finder"_s)->click();
    EXPECT_EQ(workspace.opened, QStringList{u"/Volumes/Anchor"_s});
}

TEST_F(BackupReportViewTests, withoutErrorsThereIsNoPanel)
{
    const BackupReportView view(makeState(sampleReport()), workspace);
    EXPECT_EQ(view.findChild<Banner*>(), nullptr);
}

TEST_F(BackupReportViewTests, thirtyErrorsAreAllShown)
{
    const BackupReportView view(makeState(reportWithErrors(30)), workspace);
    EXPECT_EQ(panel(view).size(), 31);
    EXPECT_EQ(panel(view).first(), u"Skipped Files (30)"_s);
    EXPECT_EQ(panel(view).last(), u"Skip 30"_s);
    // The card shows the number of skipped files, the panel that of its lines.
    EXPECT_TRUE(cards(view).contains(u"Skipped: 5"_s));
}

TEST_F(BackupReportViewTests, theThirtyFirstErrorIsOnlyCounted)
{
    const BackupReportView view(makeState(reportWithErrors(31)), workspace);
    EXPECT_EQ(panel(view).size(), 32);
    EXPECT_EQ(panel(view).first(), u"Skipped Files (31)"_s);
    EXPECT_EQ(panel(view).at(30), u"Skip 30"_s);
    EXPECT_EQ(panel(view).last(), u"… and 1 more. See full JSON report on disk."_s);
}

TEST_F(BackupReportViewTests, aHundredThousandErrorsAreThirtyLines)
{
    const BackupReportView view(makeState(reportWithErrors(100'000)), workspace);
    EXPECT_EQ(panel(view).size(), 32);
    EXPECT_EQ(panel(view).last(), u"… and 99970 more. See full JSON report on disk."_s);
}

TEST_F(BackupReportViewTests, aFinishedRunReplacesTheContentAtOnce)
{
    AppState& app = makeState();
    BackupReportView view(app, workspace);
    show(view);
    BackupReport report = sampleReport();
    report.filesCopied = 77;
    // The engine's report is shown until the state has one.
    app.engine().setLastReport(report);
    turnFrame();
    EXPECT_TRUE(cards(view).contains(u"Files Copied: 77"_s));
    report.id = QUuid::createUuid();
    report.filesCopied = 78;
    app.engine().setLastReport(report);
    app.handleEngineCompletion();
    turnFrame();
    EXPECT_EQ(cards(view).first(), u"Files Copied: 78"_s);
    EXPECT_EQ(cards(view).size(), 4);
}

TEST_F(BackupReportViewTests, theReportOfTheStateIsPreferredToThatOfTheEngine)
{
    AppState& app = makeState(sampleReport());
    BackupReport other = sampleReport();
    other.id = QUuid::createUuid();
    other.filesCopied = 77;
    app.engine().setLastReport(other);
    const BackupReportView view(app, workspace);
    EXPECT_EQ(cards(view).first(), u"Files Copied: 1234"_s);
}

TEST_F(BackupReportViewTests, aNarrowWindowShowsTheCardsInTwoRows)
{
    BackupReport report = sampleReport();
    report.filesCopied = 123'456'789;
    BackupReportView view(makeState(report), workspace);
    show(view);
    const auto statusCards = view.findChildren<StatusCard*>();
    EXPECT_EQ(statusCards.at(0)->y(), statusCards.at(3)->y());
    view.resize(620, 620);
    turnFrame();
    EXPECT_EQ(view.width(), 620);
    EXPECT_EQ(statusCards.at(0)->y(), statusCards.at(1)->y());
    EXPECT_GT(statusCards.at(2)->y(), statusCards.at(0)->geometry().bottom());
    EXPECT_EQ(statusCards.at(0)->width(), statusCards.at(3)->width());
}

TEST_F(BackupReportViewTests, everyControlHasANameAndIsReachedByTab)
{
    BackupReportView view(makeState(sampleReport()), workspace);
    show(view);
    expectEveryControlIsNamedAndReachedByTab(view);
}

} // namespace keelbright::testing

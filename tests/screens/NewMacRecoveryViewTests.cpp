#include "Keelbright/screens/NewMacRecoveryView.h"

#include "Keelbright/screens/recovery/ManifestSummary.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QJsonDocument>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class NewMacRecoveryViewTests : public ScreenTestCase
{
protected:
    [[nodiscard]] static BackupManifest manifest()
    {
        return {
            .appVersion = u"1.0.0"_s,
            .deviceName = u"Mira's Mac"_s,
            .macOSVersion = u"Version 14.4 (Build 23E214)"_s,
            .backupDate = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 0), utcZone),
            .sourceFolders = {u"/Users/mira/Desktop"_s},
            .destinationPath = u"/Volumes/Anchor"_s,
            .installedApps = {u"Editor"_s, u"Mail"_s, u"Viewer"_s},
            .shellInfo = u"/bin/zsh"_s,
            .dotfilesPresent = {{u".zshrc"_s, true}, {u".bashrc"_s, false}, {u".gitconfig"_s, true}},
            .notes = u"None."_s,
        };
    }

    [[nodiscard]] FileURL write(const QByteArray& content) const
    {
        return mac.writeFile("Volumes/Anchor/recovery-manifest.json", content);
    }

    [[nodiscard]] FileURL write(const BackupManifest& content) const
    {
        return write(QJsonDocument(content.toJson()).toJson());
    }

    void load(NewMacRecoveryView& view, const FileURL& url)
    {
        files.willChoose(url);
        button(view, u"Load Manifest…"_s)->click();
    }

    [[nodiscard]] static QStringList summaryOf(const NewMacRecoveryView& view)
    {
        const auto* summary = view.findChild<ManifestSummary*>();
        return summary != nullptr ? textsIn(*summary) : QStringList();
    }

    [[nodiscard]] static QStringList red(const QWidget& view)
    {
        QStringList texts;
        for (const auto* label : view.findChildren<Label*>()) {
            if (label->isVisibleTo(&view) && label->colorRole() == Role::redText)
                texts.append(label->text());
        }
        return texts;
    }
};

const QString notAManifest = u"Could not read manifest: The value \"appVersion\" is missing."_s;

} // namespace

TEST_F(NewMacRecoveryViewTests, guidesThroughThreeSteps)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    EXPECT_EQ(textsIn(view),
              (QStringList{
                  u"Setting Up a New Mac"_s,
                  u"Keel Bright helps you pick up where you left off. Follow these steps after your first "
                  "login on a new Mac."_s,
                  u"Step 1"_s, u"Restore personal files"_s,
                  u"Open your backup drive and copy Personal Files back to your new Mac manually, or use the "
                  "Restore Browser."_s,
                  u"Step 2"_s, u"Rebuild your app environment"_s,
                  u"Use the recovery manifest to see which apps were installed. Reinstall via Mac App Store, "
                  "Homebrew, or direct download. Keel Bright does not restore app binaries."_s,
                  u"Step 3"_s, u"Review your setup checklist"_s,
                  u"The manifest includes dotfile presence and shell info. Re-apply .zshrc, .gitconfig, and "
                  "SSH keys from your backup."_s,
                  u"Recovery Manifest"_s,
                  u"Load your recovery-manifest.json to review what was on your previous Mac."_s}));
    EXPECT_EQ(shownSymbols(view),
              (QStringList{u"sparkles"_s, u"doc.fill"_s, u"terminal.fill"_s, u"checklist"_s}));
    EXPECT_EQ(button(view, u"Load Manifest…"_s)->symbol(), u"doc.badge.arrow.up"_s);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(NewMacRecoveryViewTests, theChooserStartsAtTheDestination)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    files.willBeDismissed();
    button(view, u"Load Manifest…"_s)->click();
    EXPECT_EQ(files.openRequests.last().folder, std::nullopt);
    chooseDrive();
    files.willBeDismissed();
    button(view, u"Load Manifest…"_s)->click();
    EXPECT_EQ(files.openRequests.last().folder, drive().appending(u"Keelbright"_s));
}

TEST_F(NewMacRecoveryViewTests, theStepsHaveTheirColors)
{
    const NewMacRecoveryView view(*state, files);
    QList<Role> colors;
    for (const auto* tile : view.findChildren<Tile*>())
        colors.append(tile->colorRole());
    EXPECT_EQ(colors, (QList<Role>{Role::accent, Role::purple, Role::teal}));
}

TEST_F(NewMacRecoveryViewTests, showsWhatTheManifestSays)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    load(view, write(manifest()));
    EXPECT_TRUE(textsIn(view).contains(u"Summary from your previous Mac"_s));
    EXPECT_EQ(summaryOf(view),
              (QStringList{u"Device"_s, u"Mira's Mac"_s, u"macOS"_s, u"Version 14.4 (Build 23E214)"_s,
                           u"Backed up"_s, u"March 1, 2026 at 10:05\u202FAM"_s, u"Shell"_s, u"/bin/zsh"_s,
                           u"Dotfiles"_s, u".bashrc"_s, u".gitconfig"_s, u".zshrc"_s,
                           u"Apps on previous Mac (3)"_s, u"Editor  ·  Mail  ·  Viewer"_s}));
    EXPECT_EQ(view.accessibleName(), u"Summary from your previous Mac"_s);
    EXPECT_TRUE(accessibleNames(view).contains(u".bashrc, not present"_s));
    EXPECT_TRUE(accessibleNames(view).contains(u"Device: Mira's Mac"_s));
}

TEST_F(NewMacRecoveryViewTests, scrollsToTheSummary)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    view.resize(620, 400);
    turnFrame();
    load(view, write(manifest()));
    turnUntil([&] {
        const auto* summary = view.findChild<ManifestSummary*>();
        return summary->height() > 0 && !summary->visibleRegion().isEmpty();
    });
}

TEST_F(NewMacRecoveryViewTests, marksTheDotfilesThatArePresent)
{
    const ManifestSummary summary(manifest());
    const auto marks = summary.findChildren<SymbolLabel*>();
    ASSERT_EQ(marks.size(), 3);
    EXPECT_EQ(marks.at(0)->key(), u"xmark.circle"_s);
    EXPECT_EQ(marks.at(0)->colorRole(), Role::secondaryText);
    EXPECT_EQ(marks.at(1)->key(), u"checkmark.circle.fill"_s);
    EXPECT_EQ(marks.at(1)->colorRole(), Role::green);
}

TEST_F(NewMacRecoveryViewTests, withoutDotfilesThereIsOnlyTheHeading)
{
    BackupManifest bare = manifest();
    bare.dotfilesPresent.clear();
    const ManifestSummary summary(bare);
    EXPECT_EQ(textsIn(summary).mid(8),
              (QStringList{u"Dotfiles"_s, u"Apps on previous Mac (3)"_s, u"Editor  ·  Mail  ·  Viewer"_s}));
}

TEST_F(NewMacRecoveryViewTests, namesTwentyAppsAndCountsAll)
{
    BackupManifest crowded = manifest();
    crowded.installedApps.clear();
    for (int i = 1; i <= 25; ++i)
        crowded.installedApps.append(u"App %1"_s.arg(i));
    const ManifestSummary summary(crowded);
    const QStringList texts = textsIn(summary);
    EXPECT_EQ(texts.at(texts.size() - 2), u"Apps on previous Mac (25)"_s);
    EXPECT_EQ(texts.last().split(u"  ·  "_s).size(), 20);
    EXPECT_TRUE(texts.last().endsWith(u"  ·  App 20"_s));
}

TEST_F(NewMacRecoveryViewTests, namesAllAppsUpToTwenty)
{
    BackupManifest full = manifest();
    full.installedApps.clear();
    for (int i = 1; i <= 20; ++i)
        full.installedApps.append(u"App %1"_s.arg(i));
    EXPECT_EQ(textsIn(ManifestSummary(full)).last().split(u"  ·  "_s), full.installedApps);
    full.installedApps.clear();
    EXPECT_EQ(textsIn(ManifestSummary(full)).last(), u"Apps on previous Mac (0)"_s);
}

TEST_F(NewMacRecoveryViewTests, namesFromTheFileAreMadeSafe)
{
    BackupManifest odd = manifest();
    odd.deviceName = u"one\ntwo"_s;
    odd.installedApps = {u"Pic\u202Egpj.app"_s};
    const QStringList texts = textsIn(ManifestSummary(odd));
    EXPECT_FALSE(texts.at(1).contains(u'\n'));
    EXPECT_EQ(texts.last(), u"Picgpj.app"_s);
}

TEST_F(NewMacRecoveryViewTests, showsWhyAFileIsNoManifest)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    load(view, write("{}"));
    EXPECT_EQ(red(view), QStringList{notAManifest});
    EXPECT_TRUE(shownSymbols(view).contains(u"exclamationmark.circle"_s));
    EXPECT_EQ(view.accessibleName(), notAManifest);
}

TEST_F(NewMacRecoveryViewTests, aFailedLoadRemovesTheSummaryOfAGoodOne)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    load(view, write(manifest()));
    load(view, write("{}"));
    EXPECT_TRUE(summaryOf(view).isEmpty());
    EXPECT_FALSE(textsIn(view).contains(u"Summary from your previous Mac"_s));
    EXPECT_EQ(red(view).size(), 1);
}

TEST_F(NewMacRecoveryViewTests, aGoodLoadRemovesTheErrorOfAFailedOne)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    load(view, write("{}"));
    load(view, write(manifest()));
    EXPECT_EQ(red(view), QStringList());
    load(view, write(manifest()));
    EXPECT_EQ(view.findChildren<ManifestSummary*>().size(), 1);
}

TEST_F(NewMacRecoveryViewTests, aDismissedChooserChangesNothing)
{
    NewMacRecoveryView view(*state, files);
    load(view, write(manifest()));
    files.willBeDismissed();
    button(view, u"Load Manifest…"_s)->click();
    EXPECT_FALSE(summaryOf(view).isEmpty());
}

TEST_F(NewMacRecoveryViewTests, theGuideStaysUsableAfterAFailure)
{
    NewMacRecoveryView view(*state, files);
    show(view);
    const QStringList guide = textsIn(view);
    load(view, write("{}"));
    EXPECT_EQ(textsIn(view), guide + QStringList{notAManifest});
    QList<Role> colors;
    for (const auto* symbol : view.findChildren<SymbolLabel*>()) {
        if (symbol->key() == u"exclamationmark.circle"_s)
            colors.append(symbol->colorRole());
    }
    EXPECT_EQ(colors, QList<Role>{Role::red});
    EXPECT_TRUE(button(view, u"Load Manifest…"_s)->isEnabled());
}

TEST_F(NewMacRecoveryViewTests, aNewVisitHasForgottenTheManifest)
{
    {
        NewMacRecoveryView view(*state, files);
        load(view, write(manifest()));
    }
    const NewMacRecoveryView again(*state, files);
    EXPECT_TRUE(summaryOf(again).isEmpty());
}

TEST_F(NewMacRecoveryViewTests, aChooserThatOutlivesTheScreenIsHarmless)
{
    files.willStayOpen();
    {
        const NewMacRecoveryView view(*state, files);
        button(view, u"Load Manifest…"_s)->click();
    }
    files.confirm(write(manifest()));
    EXPECT_TRUE(summaryOf(NewMacRecoveryView(*state, files)).isEmpty());
}

} // namespace keelbright::testing

#include "Keelbright/state/UndoStore.h"
#include "Keelbright/widgets/Progress.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Writes documents of these names and moves them to the Trash.
TrashedItems trashDocuments(Stage& stage, const QByteArrayList& names)
{
    TrashedItems trashed;
    for (const QByteArray& name : names) {
        const FileURL document = stage.mac.writeFile("Users/mira/Documents/" + name, "x");
        trashed.items.append(stage.files.trashItem(document).value());
    }
    return trashed;
}

/// A document that somebody has taken out of the Trash since.
TrashedItem missing(const Stage& stage, const QString& name)
{
    return {.origin = stage.mac.home().appending(u"Documents"_s).appending(name),
            .place = stage.mac.home().appending(u".local/share/Trash/files/none"_s),
            .record = "none"};
}

/// Begins an undo of three moves and holds it when so many have been tried.
void holdUndoAfter(Stage& stage, qsizetype tried)
{
    stage.start();
    const TrashedItems trashed =
        trashDocuments(stage, {"Letter to Grandma.odt", "Garden diary 1961.odt", "Tax 2024.pdf"});
    // The last one goes back first.
    stage.files.holdNextLookAt(trashed.items.at(trashed.items.size() - 1 - tried).origin);
    stage.state().undo().remember(trashed);
    stage.undo();
    EXPECT_TRUE(stage.files.waitUntilHeld());
}

void playRunning(Stage& stage)
{
    holdUndoAfter(stage, 2);
    const auto* bar = stage.screen().findChild<BarProgress*>();
    stage.waitUntil([bar] { return bar->fraction() > 0.6; });
    Stage::turnFrames();
}

void playCancelled(Stage& stage)
{
    holdUndoAfter(stage, 1);
    stage.state().undo().cancel();
    stage.files.letGo();
    stage.settle();
}

void playFailures(Stage& stage)
{
    stage.start();
    TrashedItems trashed =
        trashDocuments(stage, {"Letter to Grandma.odt", "Garden diary 1961.odt", "Tax 2024.pdf"});
    stage.mac.writeFile("Users/mira/Documents/Tax 2024.pdf", "a newer one");
    trashed.items.append(missing(stage, u"IMG_4117.jpg"_s));
    stage.state().undo().remember(trashed);
    stage.undo();
    stage.settle();
}

void playLongNames(Stage& stage)
{
    stage.start();
    TrashedItems trashed;
    trashed.items.append(missing(stage, QString::fromLatin1(longName)));
    trashed.items.append(
        missing(stage, QString::fromLatin1(longName) + u"/"_s + QString::fromLatin1(longName)));
    stage.state().undo().remember(trashed);
    stage.undo();
    stage.settle();
}

void playManyFailures(Stage& stage)
{
    stage.start();
    TrashedItems trashed;
    for (int i = 0; i < 1'000; ++i)
        trashed.items.append(missing(stage, u"IMG_%1.jpg"_s.arg(i)));
    stage.state().undo().remember(trashed);
    stage.undo();
    stage.settle();
}

} // namespace

QList<ScreenState> undoStates()
{
    return {
        {"undo", "running", playRunning},
        {"undo", "cancelled", playCancelled},
        {"undo", "failures", playFailures, true},
        {"undo", "long-names", playLongNames},
        {"undo", "many-failures", playManyFailures},
    };
}

} // namespace keelbright::testing

#include "tests/faults/CareWork.h"

#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/state/OrganizerVM.h"
#include "Keelbright/state/UndoStore.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/FakeFolderChooser.h"

#include <QCoreApplication>
#include <QJsonArray>

namespace keelbright::testing {

namespace {

/// Turns the event loop until the model has finished its search.
template <typename Model>
void waitWhile(const Model& model, bool (Model::*isSearching)() const, void (Model::*changed)())
{
    const auto connection = QObject::connect(&model, changed, &model, [&model, isSearching] {
        if (!(model.*isSearching)())
            QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QObject::disconnect(connection);
}

QString encoded(const FileURL& url)
{
    return QString::fromLatin1(url.nativePath().toPercentEncoding("/"));
}

QJsonObject outcomeWith(const QJsonArray& left)
{
    return {{QStringLiteral("left"), left}};
}

AppInfo editor(const FileURL& bundle)
{
    AppFacts facts;
    facts.name = QStringLiteral("Editor");
    facts.bundleID = QStringLiteral("com.example.editor");
    facts.url = bundle;
    return AppInfo(std::move(facts));
}

/// Undoes what the store remembers, and turns the event loop until that has ended.
QJsonObject undoAll(UndoStore& store)
{
    QJsonArray left;
    QObject::connect(&store, &UndoStore::ended, &store, [&left](const UndoResult& result) {
        for (const UndoFailure& failure : result.failures)
            left.append(encoded(failure.origin));
        QCoreApplication::quit();
    });
    store.undo();
    QCoreApplication::exec();
    return outcomeWith(left);
}

} // namespace

QJsonObject clean(const std::function<void()>& ready)
{
    JunkCleanerVM model(ActivityStore::shared());
    model.scan();
    waitWhile(model, &JunkCleanerVM::isScanning, &JunkCleanerVM::changed);
    model.selectAll();
    ready();
    model.clean();
    QJsonArray left;
    for (const JunkCategory& category : model.categories()) {
        for (const JunkItem& item : category.items)
            left.append(encoded(item.url));
    }
    return outcomeWith(left);
}

QJsonObject removeApplication(const FileURL& bundle, const std::function<void()>& ready)
{
    AppDetailVM model(editor(bundle), ActivityStore::shared(), {});
    model.loadLeftovers();
    waitWhile(model, &AppDetailVM::isLoadingLeftovers, &AppDetailVM::isLoadingLeftoversChanged);
    ready();
    model.removeApp();
    return outcomeWith({});
}

QJsonObject undoRemoval(const FileURL& bundle, const std::function<void()>& ready)
{
    AppDetailVM model(editor(bundle), ActivityStore::shared(), {});
    UndoStore store;
    QObject::connect(&model, &AppDetailVM::trashed, &store, &UndoStore::remember);
    model.removeAppOnly();
    ready();
    return undoAll(store);
}

QJsonObject undoOrganizing(const FileURL& folder, const std::function<void()>& ready)
{
    FakeFolderChooser chooser;
    OrganizerVM model(ActivityStore::shared(), chooser);
    UndoStore store;
    QObject::connect(&model, &OrganizerVM::organised, &store, &UndoStore::remember);
    model.scan(folder);
    waitWhile(model, &OrganizerVM::isScanning, &OrganizerVM::changed);
    model.execute();
    ready();
    return undoAll(store);
}

QJsonObject organize(const FileURL& folder, const std::function<void()>& ready)
{
    FakeFolderChooser chooser;
    OrganizerVM model(ActivityStore::shared(), chooser);
    model.scan(folder);
    waitWhile(model, &OrganizerVM::isScanning, &OrganizerVM::changed);
    ready();
    model.execute();
    QJsonArray left;
    for (const OrganizeProposal& proposal : model.proposals()) {
        for (const FileProposal& file : proposal.files)
            left.append(encoded(file.source));
    }
    return outcomeWith(left);
}

} // namespace keelbright::testing

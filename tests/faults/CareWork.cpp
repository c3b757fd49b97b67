#include "tests/faults/CareWork.h"

#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/state/OrganizerVM.h"
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
    AppFacts facts;
    facts.name = QStringLiteral("Editor");
    facts.bundleID = QStringLiteral("com.example.editor");
    facts.url = bundle;
    AppDetailVM model(AppInfo(std::move(facts)), ActivityStore::shared(), {});
    model.loadLeftovers();
    waitWhile(model, &AppDetailVM::isLoadingLeftovers, &AppDetailVM::isLoadingLeftoversChanged);
    ready();
    model.removeApp();
    return outcomeWith({});
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

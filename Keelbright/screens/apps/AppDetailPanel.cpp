#include "Keelbright/screens/apps/AppDetailPanel.h"

#include "Keelbright/screens/apps/AppIconLabel.h"
#include "Keelbright/screens/apps/AppListModel.h"
#include "Keelbright/screens/apps/AppStoreSection.h"
#include "Keelbright/screens/apps/AppUsageSection.h"
#include "Keelbright/screens/apps/LeftoversSection.h"
#include "Keelbright/screens/apps/UsageLook.h"
#include "Keelbright/screens/shared/FlowLayout.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Page.h"
#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

AppDetailPanel::AppDetailPanel(AppInfo app, const ScreenContext& context, AppIcons& icons, QWidget* parent)
    : Ground(Role::window, parent)
    , m_context(context)
    , m_icons(icons)
    , m_model(std::move(app), context.state.services().activityStore, context.state.services().lookup,
              context.state.services().clock)
{
    m_model.loadLeftovers();
    auto* page = new Page(this);
    // It stays at the top where there is little below it.
    page->content()->addWidget(makeHeader(), 0, Qt::AlignTop);
    page->content()->addWidget(new AppUsageSection(m_model.app(), context.state.now(), page));
    page->content()->addWidget(new AppStoreSection(m_model, page));
    page->content()->addWidget(new LeftoversSection(m_model, context.workspace, page));
    page->content()->addStretch();
    content()->addWidget(page, 1);
    content()->addWidget(makeActions());
    connect(&m_model, &AppDetailVM::trashed, &context.state.undo(), &UndoStore::remember);
    connect(&m_model, &AppDetailVM::removed, this, &AppDetailPanel::removed);
    // An open question shows the files found since.
    connect(&m_model, &AppDetailVM::leftoversChanged, this, [this] {
        if (m_model.showDeleteConfirm())
            m_context.alerts.setMessage(this, question());
    });
    auto* remove = new QShortcut(QKeySequence::Delete, this);
    remove->setContext(Qt::WidgetWithChildrenShortcut);
    connect(remove, &QShortcut::activated, this, &AppDetailPanel::askForRemoval);
}

QWidget* AppDetailPanel::makeHeader()
{
    constexpr int iconSide = 56;
    const AppInfo& app = m_model.app();
    auto* header = new QWidget(this);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(14);
    row->addWidget(new AppIconLabel(m_icons, app, iconSide, header));
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch();
    texts->addLayout(makeTitle(header));
    auto* facts = new FlowLayout(10, 0);
    facts->addWidget(new ElidedLabel(tr("v%1").arg(app.version), FontRole::secondary, Role::secondaryText,
                                     Qt::ElideRight, header));
    facts->addWidget(
        new ElidedLabel(app.bundleID, FontRole::secondary, Role::secondaryText, Qt::ElideMiddle, header));
    if (app.sizeBytes) {
        facts->addWidget(new ElidedLabel(ByteCountFormatter::string(*app.sizeBytes), FontRole::secondary,
                                         Role::secondaryText, Qt::ElideRight, header));
    }
    texts->addLayout(facts);
    texts->addStretch();
    row->addLayout(texts, 1);
    return header;
}

/// The name and the tag beside it, or below it if the name takes the whole width.
QLayout* AppDetailPanel::makeTitle(QWidget* header) const
{
    const AppInfo& app = m_model.app();
    const UsageLook look = lookOf(app.usageCategory);
    auto* name = new ElidedLabel(app.name, FontRole::toolbarTitle, Role::primaryText, Qt::ElideRight, header);
    auto* tagPlace = new QWidget(header);
    tagPlace->setFixedHeight(name->sizeHint().height());
    auto* middle = new QHBoxLayout(tagPlace);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->addWidget(new Tag(look.label, look.color), 0, Qt::AlignVCenter);
    auto* title = new FlowLayout(10, 0);
    title->addWidget(name);
    title->addWidget(tagPlace);
    return title;
}

QWidget* AppDetailPanel::makeActions()
{
    auto* bar = new BottomBar(this);
    auto* reveal = new Button(Button::Kind::bordered, AppListModel::revealActionName(), u"folder"_s, bar);
    auto* remove = new Button(Button::Kind::destructive, AppListModel::removeActionName(), u"trash"_s, bar);
    connect(reveal, &QPushButton::clicked, this, &AppDetailPanel::revealBundle);
    connect(remove, &QPushButton::clicked, this, &AppDetailPanel::askForRemoval);
    bar->alignWithPage(Metrics::pageMaxWidth);
    bar->content()->addStretch();
    bar->content()->addWidget(reveal);
    bar->content()->addWidget(remove);
    return bar;
}

void AppDetailPanel::revealBundle()
{
    m_context.workspace.open(m_model.app().url.deletingLastPathComponent());
}

QString AppDetailPanel::question() const
{
    const QString size = ByteCountFormatter::string(m_model.totalLeftoverBytes());
    if (m_model.canMoveApp())
        return tr("Associated files (%1) will also be moved to Trash.").arg(size);
    if (m_model.app().removalCommand.isEmpty()) {
        return tr("The app is installed for all users and stays.\nAssociated files (%1) can be moved to "
                  "Trash.")
            .arg(size);
    }
    return tr("The app belongs to a package. This command removes it: %1\nAssociated files (%2) can be "
              "moved to Trash.")
        .arg(m_model.app().removalCommand, size);
}

void AppDetailPanel::askForRemoval()
{
    if (m_model.showDeleteConfirm())
        return;
    m_model.setShowDeleteConfirm(true);
    if (!m_model.canMoveApp()) {
        askForRemovalOfFiles();
        return;
    }
    const AlertRequest request{
        .title = tr("Remove \"%1\"?").arg(displayText(m_model.app().name)),
        .message = question(),
        .action = tr("Move App + Files to Trash"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
        .dismissed = [this] { m_model.setShowDeleteConfirm(false); },
        .secondAction = tr("Move App Only to Trash"),
        .secondConfirmed = [this] { endQuestion(&AppDetailVM::removeAppOnly); },
    };
    m_context.alerts.present(this, request, [this] { endQuestion(&AppDetailVM::removeApp); });
}

void AppDetailPanel::askForRemovalOfFiles()
{
    const AlertRequest request{
        .title = tr("Remove \"%1\"?").arg(displayText(m_model.app().name)),
        .message = question(),
        .action = tr("Move Files to Trash"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
        .dismissed = [this] { m_model.setShowDeleteConfirm(false); },
        .secondAction = {},
        .secondConfirmed = {},
    };
    m_context.alerts.present(this, request, [this] { endQuestion(&AppDetailVM::removeFilesOnly); });
}

void AppDetailPanel::endQuestion(void (AppDetailVM::*remove)())
{
    m_model.setShowDeleteConfirm(false);
    (m_model.*remove)();
}

} // namespace keelbright

#include "Keelbright/screens/SettingsView.h"

#include "Keelbright/screens/shared/ScreenTitle.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Page.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int formWidth = 680;
constexpr int windowMargin = 20;
constexpr int aboutRowHeight = 37;

/// A column on the left of the page, below its title.
QVBoxLayout& addForm(Page& page)
{
    auto* form = new QWidget;
    form->setMaximumWidth(formWidth);
    auto* sections = new QVBoxLayout(form);
    sections->setContentsMargins(0, 0, 0, 0);
    sections->setSpacing(24);
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(form, 100000);
    row->addStretch(1);
    page.content()->addLayout(row);
    return *sections;
}

QVBoxLayout* addSection(QVBoxLayout& content, const QString& title)
{
    auto* section = new QVBoxLayout;
    section->setSpacing(8);
    section->addWidget(new SectionHeader(title));
    content.addLayout(section);
    return section;
}

void addFooter(QVBoxLayout& section, const QString& text)
{
    Label* footer = makeWrappingLabel(text, FontRole::secondary, Role::secondaryText);
    section.addWidget(footer);
}

QWidget* makeAboutRow(const QString& label, const QString& value)
{
    auto* row = new QWidget;
    row->setFixedHeight(aboutRowHeight);
    row->setAccessibleName(SettingsView::tr("%1: %2").arg(label, value));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(Metrics::cardPadding, 0, Metrics::cardPadding, 0);
    layout->setSpacing(12);
    layout->addWidget(new Label(label, FontRole::body, Role::primaryText));
    layout->addStretch();
    layout->addWidget(new ElidedLabel(value, FontRole::body, Role::secondaryText));
    return row;
}

QWidget* makeButtonRow(Button* button)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(Metrics::cardPadding, 9, Metrics::cardPadding, 9);
    layout->addWidget(button);
    layout->addStretch();
    return row;
}

} // namespace

SettingsView::SettingsView(AppState& state, Place place, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* page = new Page(this);
    layout->addWidget(page);
    if (place == Place::screen)
        page->content()->addWidget(new PageHeader(screenTitle(Screen::settings), {}));
    else
        page->content()->setContentsMargins(windowMargin, windowMargin, windowMargin, windowMargin);
    QVBoxLayout& form = addForm(*page);
    addDestinationSection(form);
    addFoldersSection(form);
    addAboutSection(form);
    page->content()->addStretch(1);

    connect(&state, &AppState::selectedDestinationChanged, this, &SettingsView::showDestination);
    connect(&state, &AppState::isDestinationAwayChanged, this, &SettingsView::showDestination);
    connect(&state, &AppState::recommendedFoldersChanged, this, &SettingsView::showFolders);
    connect(&state, &AppState::customSourcesChanged, this, &SettingsView::showFolders);
    showDestination();
    showFolders();
}

void SettingsView::addDestinationSection(QVBoxLayout& content)
{
    QVBoxLayout* section = addSection(content, tr("Backup Destination"));
    m_destination = new RowList;
    m_change = new Button(Button::Kind::bordered, tr("Change"), {}, this);
    m_change->setAccessibleDescription(tr("Choose where backups go"));
    connect(m_change, &QPushButton::clicked, this, [this] { m_state.pickDestination(); });
    section->addWidget(m_destination);
    addFooter(
        *section,
        tr("Choose an external drive or a local folder. Keel Bright creates a structured Keelbright/ folder "
           "inside.\n\nCloud Backup: You can choose a local folder synced by iCloud Drive, Dropbox, "
           "OneDrive, or "
           "Google Drive. Keel Bright completes the local backup; the cloud upload is handled by your sync "
           "provider."));
}

void SettingsView::addFoldersSection(QVBoxLayout& content)
{
    QVBoxLayout* section = addSection(content, tr("Protected Folders"));
    m_folders = new RowList;
    m_add = new Button(Button::Kind::bordered, tr("Add Custom Folder…"), u"plus"_s, this);
    connect(m_add, &QPushButton::clicked, this, [this] { m_state.pickCustomFolder(); });
    section->addWidget(m_folders);
    addFooter(*section,
              tr("Manage recommended and custom folders in Protected Items. Application binaries are not "
                 "included."));
}

void SettingsView::addAboutSection(QVBoxLayout& content)
{
    QVBoxLayout* section = addSection(content, tr("About Keel Bright"));
    auto* about = new RowList;
    about->addRow(makeAboutRow(tr("Version"), programVersion()));
    about->addRow(makeAboutRow(tr("Engine"), tr("Local file copy · FileManager")));
    about->addRow(makeAboutRow(tr("Encryption"), tr("Not enabled")));
    about->addRow(makeAboutRow(tr("Cloud backup"), tr("Not available")));
    section->addWidget(about);
}

void SettingsView::showDestination()
{
    // The new row takes over the same button, so that the button can keep the focus.
    const bool hadFocus = m_change->hasFocus();
    m_change->setParent(this);
    m_destination->clear();
    const auto& destination = m_state.selectedDestination();
    auto* row = destination ? new RowWidget(new Tile(u"externaldrive.fill"_s, Role::accent),
                                            destination->url.lastPathComponent(), destination->url.path(),
                                            RowWidget::Detail::path)
                            : new RowWidget(new Tile(u"externaldrive.badge.exclamationmark"_s, Role::orange),
                                            tr("No destination selected"));
    if (!destination)
        row->setTitleColor(Role::secondaryText);
    if (destination && m_state.isDestinationAway())
        row->addBesideTitle(new Tag(tr("Not connected"), Role::orange, row));
    row->addTrailing(m_change);
    m_destination->addRow(row);
    m_change->show();
    if (hadFocus)
        m_change->setFocus();
}

void SettingsView::showFolders()
{
    // The focus stays in the list while folders are removed one after another with the keyboard.
    const qsizetype focused = removeButtons().indexOf(focusWidget());
    const bool addHadFocus = m_add->hasFocus();
    m_add->setParent(this);
    m_folders->clear();
    for (const RecommendedFolder& folder : m_state.recommendedFolders()) {
        if (!folder.isEnabled)
            continue;
        const QString name =
            QCoreApplication::translate("RecommendedFolder", folder.name.toUtf8().constData());
        auto* row = new RowWidget(new Tile(folder.icon, Role::accent), name);
        row->addTrailing(new Label(tr("Recommended"), FontRole::secondary, Role::secondaryText));
        m_folders->addRow(row);
    }
    for (const BackupSource& source : m_state.customSources())
        m_folders->addRow(
            new SourceRowCard(source, [this, source] { m_state.removeCustomSource(source); }, Role::purple));
    m_folders->addRow(makeButtonRow(m_add));
    m_add->show();

    const QList<QWidget*> remaining = removeButtons();
    if (focused >= 0 && !remaining.isEmpty())
        remaining.at(std::min(focused, remaining.size() - 1))->setFocus();
    else if (focused >= 0 || addHadFocus)
        m_add->setFocus();
}

QList<QWidget*> SettingsView::removeButtons() const
{
    QList<QWidget*> buttons;
    for (int i = 0; i < m_folders->rowCount(); ++i) {
        for (Button* button : m_folders->row(i)->findChildren<Button*>()) {
            if (button != m_add)
                buttons.append(button);
        }
    }
    return buttons;
}

} // namespace keelbright

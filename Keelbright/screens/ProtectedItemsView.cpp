#include "Keelbright/screens/ProtectedItemsView.h"

#include "Keelbright/screens/protect/RecommendedFolderRow.h"
#include "Keelbright/screens/shared/FolderDrop.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/BackupCards.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

struct NotBackedUp
{
    const char* title;
    const char* detail;
};

constexpr std::array notBackedUp{
    NotBackedUp{QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView", "Application binaries"),
                QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView",
                                  "The actual .app bundles in /Applications are not copied. Use Mac App "
                                  "Store or Homebrew to reinstall.")},
    NotBackedUp{QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView", "macOS system files"),
                QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView",
                                  "No system libraries, frameworks, or OS-level data.")},
    NotBackedUp{QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView", "node_modules, .git, build folders"),
                QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView",
                                  "Auto-generated and reproducible — excluded to keep "
                                  "backups fast and lean.")},
    NotBackedUp{QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView", ".dmg, .pkg, .iso, .tmp files"),
                QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView",
                                  "Installers and temp files are skipped automatically.")},
    NotBackedUp{QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView", "Hidden and inaccessible files"),
                QT_TRANSLATE_NOOP("keelbright::ProtectedItemsView",
                                  "Files without read permission or behind SIP are skipped safely.")},
};

constexpr int rowPadding = Metrics::cardPadding;
constexpr int markSize = 18;

QWidget* makeNotBackedUpRow(const NotBackedUp& entry)
{
    const QString title = ProtectedItemsView::tr(entry.title);
    const QString detail = ProtectedItemsView::tr(entry.detail);
    auto* row = new QWidget;
    row->setAccessibleName(ProtectedItemsView::tr("%1, %2").arg(title, detail));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(rowPadding, 10, rowPadding, 10);
    layout->setSpacing(12);
    layout->addWidget(new SymbolLabel(u"xmark.circle"_s, markSize, Role::secondaryText, row), 0,
                      Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(makeWrappingLabel(title, FontRole::bodyStrong, Role::primaryText, row));
    texts->addWidget(makeWrappingLabel(detail, FontRole::secondary, Role::secondaryText, row));
    layout->addLayout(texts, 1);
    return row;
}

} // namespace

ProtectedItemsView::ProtectedItemsView(AppState& state, AlertPresenter& alerts, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_alertPresenter(alerts)
{
    addHeader();
    addRecommendedFolders();
    addCustomFolders();
    addNotBackedUp();
    content()->addStretch();
    connect(&m_state, &AppState::recommendedFoldersChanged, &m_frames, &FrameThrottle::request);
    connect(&m_state, &AppState::customSourcesChanged, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &ProtectedItemsView::redraw);
    acceptFolders(*this, [this](const QList<FileURL>& folders) {
        for (const FileURL& folder : folders)
            m_state.addCustomSource(folder);
    });
}

void ProtectedItemsView::addHeader()
{
    auto* header = new PageHeader(
        tr("Choose What to Protect"),
        tr("Keel Bright recommends common folders below. You can also add your own custom folders."), this);
    auto* reset =
        new Button(Button::Kind::bordered, tr("Reset to Defaults"), u"arrow.counterclockwise"_s, header);
    connect(reset, &QPushButton::clicked, this, &ProtectedItemsView::askForReset);
    header->addAction(reset);
    content()->addWidget(header);
}

void ProtectedItemsView::addRecommendedFolders()
{
    auto* section = new PageSection(new SectionHeader(tr("Recommended Folders"), u"star.fill"_s), this);
    auto* rows = new RowList(section);
    for (qsizetype i = 0; i < m_state.recommendedFolders().size(); ++i) {
        m_recommended.append(new RecommendedFolderRow(m_state, i, rows));
        rows->addRow(m_recommended.last());
    }
    section->content()->addWidget(rows);
    content()->addWidget(section);
}

void ProtectedItemsView::addCustomFolders()
{
    auto* header = new SectionHeader(tr("Custom Folders"), u"folder.badge.plus"_s, Role::purple);
    m_addFolder = new Button(Button::Kind::bordered, tr("Add Folder"), u"plus.circle.fill"_s, header);
    connect(m_addFolder, &QPushButton::clicked, &m_state, &AppState::pickCustomFolder);
    header->addTrailing(m_addFolder);
    auto* section = new PageSection(header, this);

    auto* empty = new Card(section);
    auto* texts = new QHBoxLayout;
    texts->setSpacing(12);
    texts->addWidget(new SymbolLabel(u"folder.badge.plus"_s, 22, Role::emptyMark, empty));
    texts->addWidget(
        makeWrappingLabel(
            tr("No custom folders yet. Click \"Add Folder\" to include any folder from your Mac."),
            FontRole::body, Role::secondaryText, empty),
        1);
    empty->content()->addLayout(texts);
    m_noCustomFolders = empty;
    m_customFolders = new RowList(section);
    section->content()->addWidget(m_noCustomFolders);
    section->content()->addWidget(m_customFolders);
    content()->addWidget(section);
    fillCustomFolders();
}

void ProtectedItemsView::addNotBackedUp()
{
    auto* section = new PageSection(new SectionHeader(tr("What Keel Bright does not back up")), this);
    auto* rows = new RowList(section);
    for (const NotBackedUp& entry : notBackedUp)
        rows->addRow(makeNotBackedUpRow(entry));
    section->content()->addWidget(rows);
    content()->addWidget(section);
}

void ProtectedItemsView::showEvent(QShowEvent* event)
{
    Page::showEvent(event);
    // A folder may have been created or deleted while the screen was hidden.
    redraw();
}

void ProtectedItemsView::redraw()
{
    for (RecommendedFolderRow* row : m_recommended)
        row->redraw();
    redrawCustomFolders();
}

void ProtectedItemsView::redrawCustomFolders()
{
    if (m_state.customSources() == m_shownCustomSources)
        return;
    int focusedRow = -1;
    for (int i = 0; i < m_customFolders->rowCount(); ++i) {
        if (m_customFolders->row(i)->isAncestorOf(QApplication::focusWidget()))
            focusedRow = i;
    }
    m_customFolders->clear();
    fillCustomFolders();
    if (focusedRow < 0)
        return;
    // The focus moves to the row that took the place of the removed one.
    const int next = std::min(focusedRow, m_customFolders->rowCount() - 1);
    QWidget* target = next < 0 ? m_addFolder : m_customFolders->row(next)->findChild<Button*>();
    target->setFocus(Qt::TabFocusReason);
}

void ProtectedItemsView::fillCustomFolders()
{
    m_shownCustomSources = m_state.customSources();
    for (const BackupSource& source : m_shownCustomSources) {
        const auto remove = [this, source] { m_state.removeCustomSource(source); };
        m_customFolders->addRow(new SourceRowCard(source, remove, Role::purple));
    }
    m_noCustomFolders->setVisible(m_shownCustomSources.isEmpty());
    m_customFolders->setVisible(!m_shownCustomSources.isEmpty());
}

void ProtectedItemsView::askForReset()
{
    const AlertRequest request{
        .title = tr("Reset to Defaults"),
        .message = tr("This will re-enable Desktop, Documents, and Pictures, and remove any custom folders."),
        .action = tr("Reset"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
    };
    m_alertPresenter.present(this, request, [this] { m_state.resetToDefaults(); });
}

} // namespace keelbright

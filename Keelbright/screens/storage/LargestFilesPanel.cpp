#include "Keelbright/screens/storage/LargestFilesPanel.h"

#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/storage/StorageFileTypes.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

} // namespace

void LargeFileModel::setFiles(const QList<LargeFileItem>& files)
{
    beginResetModel();
    m_files = files;
    endResetModel();
}

int LargeFileModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_files.size());
}

ListRow LargeFileModel::rowAt(int row) const
{
    const LargeFileItem& file = m_files.at(row);
    ListRow shown;
    shown.rank = QString::number(row + 1);
    shown.picture = ListRow::Picture::tile;
    shown.symbol = extIcon(file.ext());
    shown.symbolColor = extLabelColor(file.ext()).color;
    shown.title = file.name();
    shown.detail = file.url.deletingLastPathComponent().path();
    shown.detailElide = Qt::ElideMiddle;
    shown.value = file.formattedSize();
    shown.actions = {
        {.id = RowActionId::reveal, .symbol = u"folder"_s, .name = tr("Reveal in Finder")},
        {.id = RowActionId::trash, .symbol = u"trash"_s, .name = tr("Move to Trash"), .isDelete = true},
    };
    return shown;
}

FolderSizeNode LargeFileModel::nodeAt(int row) const
{
    const LargeFileItem& file = m_files.at(row);
    return {
        .id = QUuid::createUuid(),
        .name = file.name(),
        .url = file.url,
        .totalBytes = file.sizeBytes,
        .isDirectory = false,
    };
}

LargestFilesPanel::LargestFilesPanel(QWidget* parent)
    : QWidget(parent)
    , m_model(new LargeFileModel(this))
    , m_busy(new BusyState(tr("Scanning for large files…"), {}, 32, this))
    , m_files(new QWidget(this))
    , m_caption(new ElidedLabel({}, FontRole::groupTitle, Role::secondaryText, Qt::ElideRight, m_files))
    , m_refresh(new Button(Button::Kind::plainIcon, tr("Refresh"), u"arrow.clockwise"_s, m_files))
    , m_list(new RowListView(RowListView::Look::table, tr("Largest files"), m_files))
    , m_nothing(new QWidget(this))
    , m_pages(new QStackedLayout(this))
{
    fillFilesPage();
    auto* middle = new QVBoxLayout(m_nothing);
    auto* nothing = new Label(tr("No files found."), FontRole::body, Role::secondaryText, m_nothing);
    nothing->setAlignment(Qt::AlignCenter);
    middle->addWidget(nothing);
    m_pages->addWidget(m_busy);
    m_pages->addWidget(m_files);
    m_pages->addWidget(m_nothing);
    m_pages->setCurrentWidget(m_nothing);
}

void LargestFilesPanel::fillFilesPage()
{
    auto* column = new QVBoxLayout(m_files);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    auto* header = new QHBoxLayout;
    header->setSpacing(8);
    m_refresh->setCompact(true);
    header->addWidget(m_caption, 1);
    header->addWidget(m_refresh);
    column->addLayout(header);
    m_list->setRowModel(m_model);
    column->addWidget(makeListCard(m_list, m_files), 1);
    connect(m_refresh, &QPushButton::clicked, this, &LargestFilesPanel::refreshPressed);
    connect(m_list, &QListView::activated, this, [this](const QModelIndex& index) {
        Q_EMIT actionPressed(m_model->nodeAt(index.row()), RowActionId::open);
    });
    connect(m_list, &RowListView::actionPressed, this,
            [this](int row, RowActionId action) { Q_EMIT actionPressed(m_model->nodeAt(row), action); });
}

void LargestFilesPanel::redraw(const QList<LargeFileItem>& files, bool isLoading, const QString& folderName)
{
    m_caption->setFullText(
        tr("Top %n largest files in %1", nullptr, pluralNumber(files.size())).arg(folderName));
    if (files != m_shown) {
        m_shown = files;
        m_model->setFiles(files);
        fitListCard(m_list);
    }
    QWidget* page = files.isEmpty() ? m_nothing : m_files;
    if (isLoading)
        page = m_busy;
    if (page == m_pages->currentWidget())
        return;
    m_pages->setCurrentWidget(page);
    if (isVisible() && page != m_busy)
        announce(*page, files.isEmpty() ? tr("No files found.") : m_caption->text());
}

} // namespace keelbright

#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"
#include "KeelbrightCore/storage/LargeFileItem.h"

#include <QWidget>

class QStackedLayout;

namespace keelbright {

class Button;
class ElidedLabel;
class RowListView;

/// The largest files as the rows of a list, numbered from 1.
class LargeFileModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setFiles(const QList<LargeFileItem>& files);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;

    /// The file as an entry of a folder.
    [[nodiscard]] FolderSizeNode nodeAt(int row) const;

private:
    QList<LargeFileItem> m_files;
};

/// The largest files of a folder and everything below it, or a spinner while they are searched for.
class LargestFilesPanel : public QWidget
{
    Q_OBJECT

public:
    explicit LargestFilesPanel(QWidget* parent = nullptr);

    void redraw(const QList<LargeFileItem>& files, bool isLoading, const QString& folderName);

    [[nodiscard]] RowListView* list() const { return m_list; }

Q_SIGNALS:
    void refreshPressed();
    void actionPressed(const keelbright::FolderSizeNode& node, keelbright::RowActionId action);

private:
    void fillFilesPage();

    LargeFileModel* m_model;
    QWidget* m_busy;
    QWidget* m_files;
    ElidedLabel* m_caption;
    Button* m_refresh;
    RowListView* m_list;
    QWidget* m_nothing;
    QStackedLayout* m_pages;
    QList<LargeFileItem> m_shown;
};

} // namespace keelbright

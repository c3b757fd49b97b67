#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"

#include <QWidget>

class QHBoxLayout;

namespace keelbright {

class Button;
class ElidedLabel;
class MenuButton;
class SegmentedControl;

/// The head of the storage browser: where it is, how it shows that, and where else to go. In a narrow
/// window the choice of the view goes below.
class StorageHeader : public QWidget
{
    Q_OBJECT

public:
    /// The model outlives the head.
    explicit StorageHeader(StorageBrowserModel& model, QWidget* parent = nullptr);

    /// Shows what the model says.
    void redraw();

    /// What stands below the title.
    [[nodiscard]] QString subtitle() const;

    /// That of the narrow form, also while the wide one is shown: else no window would become narrow.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeViewControls();
    QWidget* makeActions();
    void arrange();

    StorageBrowserModel& m_model;
    ElidedLabel* m_title;
    ElidedLabel* m_subtitle;
    SegmentedControl* m_viewMode = nullptr;
    MenuButton* m_sortOrder = nullptr;
    Button* m_organise = nullptr;
    QWidget* m_viewControls;
    QWidget* m_actions;
    QHBoxLayout* m_firstRow;
    QHBoxLayout* m_secondRow;
    bool m_isInOneRow = true;
};

} // namespace keelbright

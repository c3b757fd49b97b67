#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"

#include <QLayout>
#include <QWidget>

class QHBoxLayout;

namespace keelbright {

class Button;
class ElidedLabel;
class MenuButton;
class SegmentedControl;

/// The header of the storage browser: the folder on display, how it is shown, and where else to go. In
/// a narrow window the choice of the view stands in a second row.
class StorageHeader : public QWidget
{
    Q_OBJECT

public:
    /// The model outlives the header.
    explicit StorageHeader(StorageBrowserModel& model, QWidget* parent = nullptr);

    /// Shows the present state of the model.
    void redraw();

    /// The line below the title.
    [[nodiscard]] QString subtitle() const;

    /// In a low window its two rows stand closer.
    void setLow(bool isLow) { layout()->setSpacing(isLow ? 6 : 10); }

    /// Always that of two rows: while there is one, the window could not become narrower otherwise.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fillViewControls();
    void fillActions();
    void arrange();

    StorageBrowserModel& m_model;
    ElidedLabel* m_title;
    ElidedLabel* m_subtitle;
    QWidget* m_viewControls;
    SegmentedControl* m_viewMode;
    MenuButton* m_sortOrder;
    QWidget* m_actions;
    Button* m_organise;
    Button* m_choose;
    QHBoxLayout* m_firstRow;
    QHBoxLayout* m_secondRow;
    bool m_isInOneRow = true;
};

} // namespace keelbright

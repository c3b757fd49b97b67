#pragma once

#include "Keelbright/screens/storage/StorageShortcuts.h"

#include <QList>
#include <QWidget>

namespace keelbright {

class Button;
class StorageBrowserModel;

/// The buttons that start a walk at a folder of the home, each disabled while its folder does not
/// exist. Has the folders looked up whenever it appears.
class ShortcutBar : public QWidget
{
    Q_OBJECT

public:
    /// The model outlives the bar.
    explicit ShortcutBar(StorageBrowserModel& model, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void redraw();

    StorageBrowserModel& m_model;
    QList<std::pair<StorageShortcuts::Place, Button*>> m_buttons;
};

} // namespace keelbright

#pragma once

#include <QDialog>

namespace keelbright {

class AppState;

/// The settings in a window of their own, 450 by 300. Escape closes it.
class SettingsWindow : public QDialog
{
    Q_OBJECT

public:
    /// The state must outlive the window.
    explicit SettingsWindow(AppState& state, QWidget* parent = nullptr);
};

} // namespace keelbright

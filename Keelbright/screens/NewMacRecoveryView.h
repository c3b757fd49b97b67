#pragma once

#include "Keelbright/state/NewMacRecoveryVM.h"
#include "Keelbright/widgets/Page.h"

namespace keelbright {

class AppState;
class FileChooser;
class Label;

/// A guide for the first hours on a new machine, with a reader for the manifest of a backup. Restores
/// nothing by itself. The manifest is forgotten when the screen is left.
class NewMacRecoveryView : public Page
{
    Q_OBJECT

public:
    /// Both must outlive the screen.
    NewMacRecoveryView(const AppState& state, FileChooser& files, QWidget* parent = nullptr);

private:
    void addHeader();
    void addSteps();
    void addManifestSection();
    void showManifest();
    void redraw();

    const AppState& m_state;
    NewMacRecoveryVM m_vm;
    QWidget* m_errorLine = nullptr;
    Label* m_errorText = nullptr;
    QWidget* m_summary = nullptr;
};

} // namespace keelbright

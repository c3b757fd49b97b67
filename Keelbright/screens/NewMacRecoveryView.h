#pragma once

#include "Keelbright/state/NewMacRecoveryVM.h"
#include "Keelbright/widgets/Page.h"

namespace keelbright {

class FileChooser;
class Label;

/// A guide for the first hours on a new machine, and a reader for the manifest that a backup
/// leaves. Restores nothing by itself, and forgets the manifest when it goes.
class NewMacRecoveryView : public Page
{
    Q_OBJECT

public:
    /// The chooser outlives the screen.
    explicit NewMacRecoveryView(FileChooser& files, QWidget* parent = nullptr);

private:
    void addHeader();
    void addSteps();
    void addManifestSection();
    void showManifest();
    void redraw();

    NewMacRecoveryVM m_vm;
    QWidget* m_errorLine = nullptr;
    Label* m_errorText = nullptr;
    QWidget* m_summary = nullptr;
};

} // namespace keelbright

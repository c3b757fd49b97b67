#pragma once

#include "Keelbright/state/FileChooser.h"

namespace keelbright {

/// Asks with the toolkit's file dialog. Not the desktop's own: its accept button has to carry the
/// prompt.
class DialogFileChooser : public FileChooser
{
public:
    void chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen) override;
    void chooseSaveLocation(const FileSaveRequest& request,
                            std::function<void(const FileURL&)> chosen) override;
};

} // namespace keelbright

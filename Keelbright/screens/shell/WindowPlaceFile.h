#pragma once

#include "Keelbright/screens/shell/WindowPlace.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// The file "window.json" in the folder of the settings, which holds where the window stood at the end of the
/// program. It is no setting: one that can't be read or written is passed over. Main thread; both calls block
/// for a small file.
class WindowPlaceFile
{
public:
    /// `settings` is the folder "Keelbright".
    explicit WindowPlaceFile(const FileURL& settings);

    [[nodiscard]] std::optional<WindowPlace> load() const;
    void save(const WindowPlace& place) const;

private:
    FileURL m_file;
};

} // namespace keelbright

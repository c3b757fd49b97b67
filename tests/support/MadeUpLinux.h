#pragma once

#include "tests/support/MadeUpFiles.h"

namespace keelbright::testing {

/// The home of one Mira on a Linux desktop, `<root>/home/mira`, with what the desktop and its programs
/// write into it. Big files are holes, so that sizes are believable and the whole takes little room.
class MadeUpLinux
{
public:
    /// `windowManager` is one that is started without a desktop around it, and writes nothing itself.
    enum class Desktop { gnome, plasma, windowManager };
    enum class Language { english, german };

    MadeUpLinux(MadeUpFiles files, Desktop desktop, Language language);

    /// The folders for personal files and the list of them. A bare window manager has neither the list nor
    /// any folder that nobody has made: of its user's there are "Documents" and "Pictures".
    void addUserFolders() const;

    [[nodiscard]] FileURL home() const { return m_files.at("home/mira"); }

private:
    MadeUpFiles m_files;
    Desktop m_desktop;
    Language m_language;
};

} // namespace keelbright::testing

#pragma once

#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/faults/FaultTest.h"

namespace keelbright::testing {

/// The fixture of tests that move the user's files on a machine with real faults.
class CareFaultTest : public FaultTest
{
protected:
    /// Writes a file with plain calls that every file system supports.
    static void write(const FileURL& file, const QByteArray& content);

    /// The Trash of the volume with this top folder.
    [[nodiscard]] static FileURL trashOf(const FileURL& top);

    FileURL trash = mac.home().appendingNative(".local/share/Trash");
    ActivityStore log{mac.fileManager().applicationSupportDirectory()};
};

inline constexpr auto reasonNoVolume = "a volume of its own needs the right to mount";

} // namespace keelbright::testing

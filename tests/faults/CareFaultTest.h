#pragma once

#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/faults/FaultTest.h"

namespace keelbright::testing {

/// A test of the work that moves the user's things, on a machine with real faults.
class CareFaultTest : public FaultTest
{
protected:
    /// Writes a file by the shortest way there is on any file system.
    static void write(const FileURL& file, const QByteArray& content);

    /// The Trash of a volume by its top folder.
    [[nodiscard]] static FileURL trashOf(const FileURL& top);

    FileURL trash = mac.home().appendingNative(".local/share/Trash");
    ActivityStore log{mac.fileManager().applicationSupportDirectory()};
};

inline constexpr auto reasonNoVolume = "a volume of its own needs the right to mount";

} // namespace keelbright::testing

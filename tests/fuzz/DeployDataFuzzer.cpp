#include "KeelbrightCore/apps/ContainedPackages.h"
#include "tests/fuzz/Fuzzer.h"

/// The input is what Flatpak wrote down of one application.
int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    const auto bytes = ContainedPackages::sizeInDeployData(fuzzing::bytesOf(data, size));
    fuzzing::require(!bytes || *bytes > 0, "a size is more than nothing");
    return 0;
}

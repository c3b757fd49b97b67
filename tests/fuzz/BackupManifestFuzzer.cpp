#include "KeelbrightCore/backup/BackupManifest.h"
#include "tests/fuzz/RecordRoundTrip.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace keelbright;
    fuzzing::readRecord<BackupManifest>(fuzzing::bytesOf(data, size));
    return 0;
}
